#pragma once

#include "platform/StatusArea.h"

#include <memory>

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusServiceWatcher>

namespace driftbox {

/// The hosts of status notifier items, as the session's watcher of them tells. Nothing waits for
/// the watcher: while it does not answer there is no host.
class StatusNotifierHosts final : public StatusArea
{
    Q_OBJECT

public:
    explicit StatusNotifierHosts(const QDBusConnection& sessionBus, QObject* parent = nullptr);

    void watch() override;

private Q_SLOTS:
    // By name: what the bus library calls.
    void ask();    ///< a host has come or gone
    void forget(); ///< the bus has gone

private:
    QDBusConnection m_bus;
    std::unique_ptr<QDBusServiceWatcher> m_watcher;
    int m_question = 0; ///< the current one; answers to earlier ones are dropped
};

} // namespace driftbox
