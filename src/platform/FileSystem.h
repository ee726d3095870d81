#pragma once

#include "platform/Expected.h"

#include <optional>

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace driftbox {

/// The user's files. Thread-safe. Paths are absolute.
class FileSystem
{
public:
    FileSystem() = default;
    Q_DISABLE_COPY_MOVE(FileSystem)
    virtual ~FileSystem() = default;

    /// The whole file; none when it cannot be read.
    [[nodiscard]] virtual std::optional<QByteArray> read(const QString& path) const = 0;

    /// Replaces the whole file, readable by the user alone: at any time, even after a crash, the
    /// path holds either the old or the new bytes.
    virtual Expected<void> writeAtomically(const QString& path, const QByteArray& bytes) = 0;

    /// Replaces one of the user's documents; the data is on disk on return. A write that fails
    /// leaves the old file. Permissions and symbolic links are preserved; a new file gets the
    /// user's default permissions; a write-protected file is not replaced.
    virtual Expected<void> replaceDocument(const QString& path, const QByteArray& bytes) = 0;

    /// Creates the folder and its missing parents, accessible to the user alone. False when the
    /// folder does not exist afterwards.
    virtual bool createFolder(const QString& path) = 0;

    /// False when the file does not exist or cannot be removed.
    virtual bool remove(const QString& path) = 0;
};

} // namespace driftbox
