#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QMutex>
#include <QtCore/QSet>
#include <QtCore/QThreadPool>

namespace driftbox {

/// Pushes written files from the kernel's memory to the disk, on a thread that lives only while
/// there is something to push. Thread-safe. The destructor waits for what was asked for.
class BackgroundSync
{
public:
    BackgroundSync();

    /// Returns at once. Asking again for a path that still waits for its turn costs nothing.
    void schedule(const QByteArray& path);

private:
    void syncPending();

    QMutex m_mutex;
    QSet<QByteArray> m_pending;
    bool m_running = false;
    QThreadPool m_thread; ///< the last member: its destructor waits while the others still live
};

} // namespace driftbox
