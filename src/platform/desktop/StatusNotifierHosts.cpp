#include "platform/desktop/StatusNotifierHosts.h"

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusPendingReply>
#include <QtDBus/QDBusVariant>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

const QString watcherService = u"org.kde.StatusNotifierWatcher"_s; // also the interface's name
const QString watcherPath = u"/StatusNotifierWatcher"_s;

} // namespace

StatusNotifierHosts::StatusNotifierHosts(const QDBusConnection& sessionBus, QObject* parent)
    : StatusArea(parent)
    , m_bus(sessionBus)
{
}

void StatusNotifierHosts::watch()
{
    if (m_watcher || !m_bus.isConnected())
        return;
    m_watcher = std::make_unique<QDBusServiceWatcher>(watcherService, m_bus);
    connect(m_watcher.get(), &QDBusServiceWatcher::serviceRegistered, this,
            &StatusNotifierHosts::query);
    connect(m_watcher.get(), &QDBusServiceWatcher::serviceUnregistered, this,
            &StatusNotifierHosts::reset);
    for (const auto& change :
         {u"StatusNotifierHostRegistered"_s, u"StatusNotifierHostUnregistered"_s})
        m_bus.connect(watcherService, watcherPath, watcherService, change, this, SLOT(query()));
    m_bus.connect(QString(), u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s,
                  u"Disconnected"_s, this, SLOT(reset()));
    query();
}

void StatusNotifierHosts::query()
{
    auto call = QDBusMessage::createMethodCall(watcherService, watcherPath,
                                               u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    call << watcherService << u"IsStatusNotifierHostRegistered"_s;
    call.setAutoStartService(false);
    const int generation = ++m_generation;
    auto* answer = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, generation, answer] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (generation == m_generation)
            setAvailable(reply.isValid() && reply.value().variant().toBool());
    });
}

void StatusNotifierHosts::reset()
{
    ++m_generation;
    setAvailable(false);
}

} // namespace driftbox
