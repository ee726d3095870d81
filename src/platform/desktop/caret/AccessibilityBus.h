#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusServiceWatcher>

namespace driftbox {

class TaskRunner;

/// The connection to the bus that assistive technology and applications share. It is looked for at
/// construction and whenever the session starts a new one; that there is none is logged once. Main
/// thread only, and never makes it wait.
class AccessibilityBus final : public QObject
{
    Q_OBJECT

public:
    /// `tasks` must outlive this.
    AccessibilityBus(const QDBusConnection& session, TaskRunner& tasks, QObject* parent = nullptr);
    ~AccessibilityBus() override;

    /// Not connected while there is no bus.
    [[nodiscard]] const QDBusConnection& connection() const { return m_connection; }

    /// Looks for the bus again where there is no connection, and has the session start it.
    void retry();

private Q_SLOTS:
    void dropConnection(); ///< by name: what the bus library calls when the connection is lost

private:
    void requestAddress();
    void open(const QString& address);
    void adopt(const QDBusConnection& connection, const QString& address);
    void fail(const QString& reason);

    QDBusConnection m_session;
    TaskRunner& m_tasks;
    QDBusServiceWatcher m_launcher;
    QDBusConnection m_connection;
    QString m_address; ///< of the connection; empty while there is none
    int m_attempt = 0; ///< the current one; replies to earlier ones are dropped
    bool m_attempting = false;
    bool m_absenceReported = false;
};

} // namespace driftbox
