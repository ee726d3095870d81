#pragma once

#include "platform/FileSystem.h"

#include <QtCore/QHash>
#include <QtCore/QMap>
#include <QtCore/QMutex>
#include <QtCore/QSet>
#include <QtCore/QStringList>

namespace driftbox {

/// Files in memory, with failures on demand. Like the real one it is thread-safe, and a file can
/// only be written into a folder that exists.
class FakeFileSystem final : public FileSystem
{
public:
    [[nodiscard]] std::optional<QByteArray> read(const QString& path) const override;
    Expected<void> writeAtomically(const QString& path, const QByteArray& bytes) override;
    /// Counts and fails as any write.
    Expected<void> replaceDocument(const QString& path, const QByteArray& bytes) override
    {
        return writeAtomically(path, bytes);
    }
    bool createFolder(const QString& path) override;
    bool remove(const QString& path) override;

    /// Puts a file there, and the folders above it, without counting a write.
    void setFile(const QString& path, const QByteArray& bytes);

    /// Lets every write, or the writes to `path` alone, fail with `error` from now on.
    void failWrites(const QString& error, const QString& path = {});
    void failReads(const QString& path);
    void failRemovals();
    void failFolders();
    /// Ends all failures.
    void succeed();

    /// The paths of all files, sorted.
    [[nodiscard]] QStringList files() const;
    [[nodiscard]] bool exists(const QString& path) const;
    [[nodiscard]] bool folderExists(const QString& path) const;

    /// The writes asked for, failed ones included.
    [[nodiscard]] int writeCount(const QString& path) const;
    [[nodiscard]] int writeCount() const;
    /// The reads asked for, failed ones included.
    [[nodiscard]] int readCount(const QString& path) const;

private:
    void addFolder(const QString& path);
    [[nodiscard]] std::optional<Error> writeError(const QString& path) const;

    mutable QMutex m_mutex;
    QMap<QString, QByteArray> m_files;
    QSet<QString> m_folders;
    QHash<QString, int> m_writes;
    mutable QHash<QString, int> m_reads;
    QHash<QString, QString> m_writeErrors; ///< by path, the empty one standing for all
    QSet<QString> m_unreadable;
    bool m_removalsFail = false;
    bool m_foldersFail = false;
};

} // namespace driftbox
