#pragma once

#include "platform/FileSystem.h"

#include <QtCore/QHash>
#include <QtCore/QMap>
#include <QtCore/QMutex>
#include <QtCore/QSet>
#include <QtCore/QStringList>

namespace driftbox {

/// An in-memory file system that can simulate failures. Like the real one, it is thread-safe and
/// writes files only into existing folders.
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

    /// Creates a file and its parent folders without counting a write.
    void setFile(const QString& path, const QByteArray& bytes);

    /// Makes all writes, or only those to `path`, fail with `error` from now on.
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

    /// The number of attempted writes, including failed ones.
    [[nodiscard]] int writeCount(const QString& path) const;
    [[nodiscard]] int writeCount() const;
    /// The number of attempted reads, including failed ones.
    [[nodiscard]] int readCount(const QString& path) const;

private:
    void addFolder(const QString& path);
    [[nodiscard]] std::optional<Error> writeError(const QString& path) const;

    mutable QMutex m_mutex;
    QMap<QString, QByteArray> m_files;
    QSet<QString> m_folders;
    QHash<QString, int> m_writes;
    mutable QHash<QString, int> m_reads;
    QHash<QString, QString> m_writeErrors; ///< by path; the empty path applies to all
    QSet<QString> m_unreadable;
    bool m_removalsFail = false;
    bool m_foldersFail = false;
};

} // namespace driftbox
