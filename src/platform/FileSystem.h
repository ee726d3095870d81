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
    FileSystem(const FileSystem&) = delete;
    FileSystem& operator=(const FileSystem&) = delete;
    virtual ~FileSystem() = default;

    /// The whole file; none when it cannot be read.
    [[nodiscard]] virtual std::optional<QByteArray> read(const QString& path) const = 0;

    /// Replaces the file as a whole, readable by the user alone: at any instant, a crash included,
    /// the path holds either the old bytes or the new.
    virtual Expected<void> writeAtomically(const QString& path, const QByteArray& bytes) = 0;

    /// Replaces a document of the user as a whole, and the disk has it on return: a write that
    /// fails leaves the old file. Permissions and a symbolic link on the way stay as they are; a
    /// new file gets the user's usual permissions; a file that is protected from writing is not
    /// replaced.
    virtual Expected<void> replaceDocument(const QString& path, const QByteArray& bytes) = 0;

    /// Creates the folder and those above it, for the user alone. False when it is not there after.
    virtual bool createFolder(const QString& path) = 0;

    /// False when there was nothing to remove or it could not be.
    virtual bool remove(const QString& path) = 0;
};

} // namespace driftbox
