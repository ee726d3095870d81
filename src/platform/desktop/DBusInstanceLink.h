#pragma once

#include "platform/InstanceLink.h"

#include <QtCore/QLockFile>
#include <QtDBus/QDBusConnection>

namespace driftbox {

/// Ensures one instance per session with a well-known name on the session bus, under which it
/// serves org.freedesktop.Application. Without a session bus a lock file in the runtime folder
/// prevents a second instance; documents cannot be handed over in that case.
class DBusInstanceLink final : public InstanceLink
{
    Q_OBJECT

public:
    /// `runtimeFolder` contains the lock file.
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
