#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

namespace driftbox {

/// Names of the notifications that subsystems send each other.
namespace Notification {
/// The chosen content is on the pasteboard: hide the panel and paste it where the user was typing.
inline const QString magicPanelPaste = QStringLiteral("app.driftbox.panelPaste");
} // namespace Notification

/// In-process notifications without sender or payload. Main thread only; delivery is immediate.
class NotificationCenter : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    void post(const QString& name) { Q_EMIT posted(name); }

Q_SIGNALS:
    void posted(const QString& name);
};

} // namespace driftbox
