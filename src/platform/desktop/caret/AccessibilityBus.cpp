#include "platform/desktop/caret/AccessibilityBus.h"

#include "platform/TaskRunner.h"
#include "platform/desktop/caret/AccessibilityNames.h"

#include <utility>

#include <QtCore/QLoggingCategory>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusPendingReply>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(accessibilityBusLog, "AccessibilityBus")

// Connection names must never be reused.
QString nextConnectionName()
{
    static int number = 0;
    return u"driftbox-accessibility-%1"_s.arg(++number);
}

} // namespace

AccessibilityBus::AccessibilityBus(const QDBusConnection& session, TaskRunner& tasks,
                                   QObject* parent)
    : QObject(parent)
    , m_session(session)
    , m_tasks(tasks)
    , m_launcher(accessibility::launcherService, session, QDBusServiceWatcher::WatchForRegistration)
    , m_connection(QString())
{
    connect(&m_launcher, &QDBusServiceWatcher::serviceRegistered, this,
            &AccessibilityBus::requestAddress);
    requestAddress();
}

AccessibilityBus::~AccessibilityBus()
{
    QDBusConnection::disconnectFromBus(m_connection.name());
}

void AccessibilityBus::retry()
{
    if (!m_isAttempting && !m_connection.isConnected())
        requestAddress();
}

void AccessibilityBus::requestAddress()
{
    if (!m_session.isConnected()) // a call would never be answered
        return fail(u"there is no session bus"_s);
    const int attempt = ++m_attempt;
    m_isAttempting = true;
    const auto request =
        QDBusMessage::createMethodCall(accessibility::launcherService, accessibility::launcherPath,
                                       accessibility::launcherService, u"GetAddress"_s);
    auto* watcher = new QDBusPendingCallWatcher(m_session.asyncCall(request), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, attempt, watcher] {
        watcher->deleteLater();
        if (attempt != m_attempt)
            return;
        const QDBusPendingReply<QString> reply = *watcher;
        if (reply.isError())
            fail(reply.error().message());
        else if (reply.value() == m_address && m_connection.isConnected())
            m_isAttempting = false;
        else
            open(reply.value());
    });
}

// Connecting blocks until the bus replies, so it happens on another thread.
void AccessibilityBus::open(const QString& address)
{
    const int attempt = m_attempt;
    const QString name = nextConnectionName();
    const auto connect = [address, name] { QDBusConnection::connectToBus(address, name); };
    m_tasks.run(this, connect, [this, attempt, name, address] {
        const QDBusConnection connection(name);
        if (attempt == m_attempt && connection.isConnected()) {
            adopt(connection, address);
            return;
        }
        if (attempt == m_attempt)
            fail(connection.lastError().message());
        QDBusConnection::disconnectFromBus(name);
    });
}

void AccessibilityBus::adopt(const QDBusConnection& connection, const QString& address)
{
    dropConnection();
    m_isAttempting = false;
    m_address = address;
    m_connection = connection;
    m_connection.connect(QString(), u"/org/freedesktop/DBus/Local"_s,
                         u"org.freedesktop.DBus.Local"_s, u"Disconnected"_s, this,
                         SLOT(dropConnection()));
}

void AccessibilityBus::dropConnection()
{
    if (m_address.isEmpty())
        return;
    QDBusConnection::disconnectFromBus(m_connection.name());
    m_connection = QDBusConnection(QString());
    m_address.clear();
}

void AccessibilityBus::fail(const QString& reason)
{
    m_isAttempting = false;
    if (!std::exchange(m_hasReportedAbsence, true))
        qCInfo(accessibilityBusLog).noquote()
            << u"No accessibility bus; the caret cannot be found: %1"_s.arg(reason);
}

} // namespace driftbox
