#pragma once

#include "platform/StatusArea.h"

#include <memory>

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusServiceWatcher>

namespace driftbox {

/// Availability of status notifier hosts, as reported by the session's watcher. The watcher is
/// queried asynchronously; until it answers, no host is available.
class StatusNotifierHosts final : public StatusArea
{
    Q_OBJECT

public:
    explicit StatusNotifierHosts(const QDBusConnection& sessionBus, QObject* parent = nullptr);

    void watch() override;

private Q_SLOTS:
    // Connected by name on the bus.
    void query(); ///< a host has been registered or unregistered
    void reset(); ///< the bus or the watcher has disappeared

private:
    QDBusConnection m_bus;
    std::unique_ptr<QDBusServiceWatcher> m_watcher;
    int m_generation = 0; ///< of the latest query; replies to earlier ones are dropped
};

} // namespace driftbox
