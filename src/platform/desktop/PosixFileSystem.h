#pragma once

#include "platform/FileSystem.h"
#include "platform/desktop/BackgroundSync.h"

#include <QtCore/QMutex>
#include <QtCore/QSet>
#include <QtCore/QWaitCondition>

namespace driftbox {

/// The files of the machine. Calls return when the kernel has the bytes; a background thread then
/// sees to it that the disk has them too, and the destructor waits for it.
///
/// A write goes to the hidden file ".NAME.new" beside its target, which takes the target's place
/// when it is complete. What a killed program left under that name is overwritten by its next
/// write. When the target is a symbolic link, the file it leads to is replaced and the link stays.
/// Only regular files are read.
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
