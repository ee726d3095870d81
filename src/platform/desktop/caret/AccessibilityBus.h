#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusServiceWatcher>

namespace driftbox {

class TaskRunner;

/// The connection to the accessibility bus. It is opened at construction and whenever the session
/// starts a new bus; a missing bus is logged once. Main thread only; never blocks.
class AccessibilityBus final : public QObject
{
    Q_OBJECT

public:
    /// `tasks` must outlive this.
    AccessibilityBus(const QDBusConnection& session, TaskRunner& tasks, QObject* parent = nullptr);
    ~AccessibilityBus() override;

    /// Not connected while there is no bus.
    [[nodiscard]] const QDBusConnection& connection() const { return m_connection; }

    /// If not connected, looks for the bus again and asks the session to start it.
    void retry();

private Q_SLOTS:
    void dropConnection(); ///< connected by name on the bus: the connection has been lost

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
    int m_attempt = 0; ///< the current attempt; replies to earlier ones are dropped
    bool m_isAttempting = false;
    bool m_hasReportedAbsence = false;
};

} // namespace driftbox
