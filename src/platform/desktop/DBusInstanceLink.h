#pragma once

#include "platform/InstanceLink.h"

#include <QtCore/QLockFile>
#include <QtDBus/QDBusConnection>

namespace driftbox {

/// One process a session by a well-known name on the session bus, on which it answers
/// org.freedesktop.Application. Without a session bus a lock file in the runtime folder keeps a
/// second process from running; documents cannot be handed over then.
class DBusInstanceLink final : public InstanceLink
{
    Q_OBJECT

public:
    /// `runtimeFolder` is where the lock file goes.
    DBusInstanceLink(const QDBusConnection& sessionBus, const QString& runtimeFolder,
                     QObject* parent = nullptr);
    ~DBusInstanceLink() override;

    [[nodiscard]] Claim claim(const QList<QUrl>& documents) override;

private:
    [[nodiscard]] Claim claimByLockFile();
    void handOver(const QList<QUrl>& documents);

    QDBusConnection m_bus;
    QLockFile m_lock;
};

} // namespace driftbox
