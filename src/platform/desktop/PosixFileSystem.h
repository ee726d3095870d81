#pragma once

#include "platform/FileSystem.h"
#include "platform/desktop/BackgroundSync.h"

#include <QtCore/QMutex>
#include <QtCore/QSet>
#include <QtCore/QWaitCondition>

namespace driftbox {

/// The local file system. Calls return when the kernel has the data; a background thread then syncs
/// it to disk, and the destructor waits for that thread.
///
/// A write goes to the hidden file ".NAME.new" next to its target and replaces the target when it
/// is complete. A leftover of an interrupted write is overwritten by the next one. When the target
/// is a symbolic link, the file it points to is replaced and the link is preserved. Only regular
/// files are read.
class PosixFileSystem final : public FileSystem
{
public:
    [[nodiscard]] std::optional<QByteArray> read(const QString& path) const override;
    Expected<void> writeAtomically(const QString& path, const QByteArray& bytes) override;
    Expected<void> replaceDocument(const QString& path, const QByteArray& bytes) override;
    bool createFolder(const QString& path) override;
    bool remove(const QString& path) override;

private:
    class PathLock;

    QMutex m_mutex;
    QWaitCondition m_pathReleased;
    QSet<QByteArray> m_pathsInUse; ///< the temporary files being written
    BackgroundSync m_sync;
};

} // namespace driftbox
