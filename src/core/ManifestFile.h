#pragma once

#include "platform/Expected.h"

#include <optional>

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace driftbox {

class FileSystem;

/// A JSON file that the program rewrites as a whole. Contents that it could not understand are kept
/// beside it, as "name.corrupt.json", before they are first overwritten. Main thread only.
class ManifestFile
{
public:
    /// `path` ends in ".json". `fileSystem` must outlive this.
    ManifestFile(FileSystem& fileSystem, const QString& path);

    /// None when the file cannot be read.
    [[nodiscard]] std::optional<QByteArray> read() const;

    /// `contents`, which `read` gave, could not be understood.
    void markCorrupt(const QByteArray& contents) { m_corrupt = contents; }

    /// When it fails, the file is as it was.
    Expected<void> write(const QByteArray& contents);

private:
    FileSystem& m_fileSystem;
    QString m_path;
    std::optional<QByteArray> m_corrupt;
};

} // namespace driftbox
