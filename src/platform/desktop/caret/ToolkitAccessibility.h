#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusServiceWatcher>

namespace driftbox {

/// Turns accessibility on for the session's toolkits while this object exists, and again whenever
/// the accessibility service restarts. Some applications notice only when they start. Without an
/// accessibility service this has no effect.
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
