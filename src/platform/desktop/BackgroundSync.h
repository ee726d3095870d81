#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QMutex>
#include <QtCore/QSet>
#include <QtCore/QThreadPool>

namespace driftbox {

/// Flushes written files to disk on a background thread that exists only while there is work.
/// Thread-safe. The destructor waits for all scheduled files.
class BackgroundSync
{
public:
    BackgroundSync();

    /// Returns at once. A path that is already pending is flushed only once.
    void schedule(const QByteArray& path);

private:
    void syncPending();

    QMutex m_mutex;
    QSet<QByteArray> m_pending;
    bool m_isRunning = false;
    QThreadPool m_thread; ///< last, so that its destructor waits while the others still exist
};

} // namespace driftbox
