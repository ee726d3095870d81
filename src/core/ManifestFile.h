#pragma once

#include "platform/Expected.h"

#include <optional>

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace driftbox {

class FileSystem;

/// A JSON file that is always rewritten as a whole. Unreadable contents are backed up next to it as
/// "name.corrupt.json" before they are first overwritten. Main thread only.
class ManifestFile
{
public:
    /// `path` must end in ".json". `fileSystem` must outlive this.
    ManifestFile(FileSystem& fileSystem, const QString& path);

    /// Nullopt if the file cannot be read.
    [[nodiscard]] std::optional<QByteArray> read() const;

    /// Requests a backup of `contents`, as returned by `read`, before the next write.
    void markCorrupt(const QByteArray& contents) { m_corrupt = contents; }

    /// When it fails, the file is as it was.
    Expected<void> write(const QByteArray& contents);

private:
    FileSystem& m_fileSystem;
    QString m_path;
    std::optional<QByteArray> m_corrupt;
};

} // namespace driftbox
