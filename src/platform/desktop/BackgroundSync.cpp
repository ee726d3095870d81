#include "platform/desktop/BackgroundSync.h"

#include "platform/FileDescriptor.h"

#include <cerrno>
#include <chrono>
#include <utility>

#include <fcntl.h>

#include <QtCore/QLoggingCategory>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(backgroundSyncLog, "BackgroundSync")

constexpr std::chrono::milliseconds idleThreadTimeout{2'000};

void sync(const QByteArray& path)
{
    const FileDescriptor file(open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.isOpen())
        return; // removed or replaced meanwhile
    if (fsync(file.get()) != 0) {
        qCWarning(backgroundSyncLog).noquote() << u"Not safely on disk: %1: %2"_s.arg(
            QString::fromLocal8Bit(path), qt_error_string(errno));
    }
}

} // namespace

BackgroundSync::BackgroundSync()
{
    m_thread.setMaxThreadCount(1);
    m_thread.setExpiryTimeout(static_cast<int>(idleThreadTimeout.count()));
}

void BackgroundSync::schedule(const QByteArray& path)
{
    const QMutexLocker lock(&m_mutex);
    m_pending.insert(path);
    if (!std::exchange(m_isRunning, true))
        m_thread.start([this] { syncPending(); });
}

void BackgroundSync::syncPending()
{
    while (true) {
        QSet<QByteArray> paths;
        {
            const QMutexLocker lock(&m_mutex);
            m_isRunning = !m_pending.isEmpty();
            if (!m_isRunning)
                return;
            paths.swap(m_pending);
        }

        // Folders are synced last, so that their entries never refer to missing data.
        QSet<QByteArray> folders;
        for (const QByteArray& path : std::as_const(paths)) {
            sync(path);
            folders.insert(path.left(path.lastIndexOf('/') + 1));
        }
        for (const QByteArray& folder : std::as_const(folders))
            sync(folder);
    }
}

} // namespace driftbox
