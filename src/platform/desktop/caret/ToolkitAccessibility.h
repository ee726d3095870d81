#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusServiceWatcher>

namespace driftbox {

/// Asks the session's toolkits to describe their windows to assistive technology, as long as this
/// exists and whenever the accessibility service starts anew. Some applications notice only when
/// they start. Asking costs nothing where there is nobody to ask.
class ToolkitAccessibility final : public QObject
{
    Q_OBJECT

public:
    explicit ToolkitAccessibility(const QDBusConnection& session, QObject* parent = nullptr);

private:
    void switchOn();

    QDBusConnection m_session;
    QDBusServiceWatcher m_launcher;
};

} // namespace driftbox
