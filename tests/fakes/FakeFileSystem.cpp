#include "fakes/FakeFileSystem.h"

#include <numeric>

#include <QtCore/QMutexLocker>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

QString folderOf(const QString& path)
{
    return path.left(path.lastIndexOf(u'/'));
}

} // namespace

std::optional<QByteArray> FakeFileSystem::read(const QString& path) const
{
    const QMutexLocker lock(&m_mutex);
    ++m_reads[path];
    const auto file = m_files.constFind(path);
    if (file == m_files.cend() || m_unreadable.contains(path))
        return std::nullopt;
    return *file;
}

Expected<void> FakeFileSystem::writeAtomically(const QString& path, const QByteArray& bytes)
{
    const QMutexLocker lock(&m_mutex);
    ++m_writes[path];
    if (const auto error = writeError(path))
        return *error;
    m_files.insert(path, bytes);
    return {};
}

std::optional<Error> FakeFileSystem::writeError(const QString& path) const
{
    for (const QString& key : {path, QString()}) {
        if (const auto error = m_writeErrors.constFind(key); error != m_writeErrors.cend())
            return Error{*error};
    }
    if (!m_folders.contains(folderOf(path)))
        return Error{u"%1: No such file or directory"_s.arg(path)};
    return std::nullopt;
}

bool FakeFileSystem::createFolder(const QString& path)
{
    const QMutexLocker lock(&m_mutex);
    if (!m_foldersFail)
        addFolder(path);
    return m_folders.contains(path);
}

bool FakeFileSystem::remove(const QString& path)
{
    const QMutexLocker lock(&m_mutex);
    return !m_removalsFail && m_files.remove(path) > 0;
}

void FakeFileSystem::setFile(const QString& path, const QByteArray& bytes)
{
    const QMutexLocker lock(&m_mutex);
    addFolder(folderOf(path));
    m_files.insert(path, bytes);
}

void FakeFileSystem::addFolder(const QString& path)
{
    for (QString folder = path; !folder.isEmpty(); folder = folderOf(folder))
        m_folders.insert(folder);
}

void FakeFileSystem::failWrites(const QString& error, const QString& path)
{
    const QMutexLocker lock(&m_mutex);
    m_writeErrors.insert(path, error);
}

void FakeFileSystem::failReads(const QString& path)
{
    const QMutexLocker lock(&m_mutex);
    m_unreadable.insert(path);
}

void FakeFileSystem::failRemovals()
{
    const QMutexLocker lock(&m_mutex);
    m_removalsFail = true;
}

void FakeFileSystem::failFolders()
{
    const QMutexLocker lock(&m_mutex);
    m_foldersFail = true;
}

void FakeFileSystem::succeed()
{
    const QMutexLocker lock(&m_mutex);
    m_writeErrors.clear();
    m_unreadable.clear();
    m_removalsFail = false;
    m_foldersFail = false;
}

QStringList FakeFileSystem::files() const
{
    const QMutexLocker lock(&m_mutex);
    return m_files.keys();
}

bool FakeFileSystem::exists(const QString& path) const
{
    const QMutexLocker lock(&m_mutex);
    return m_files.contains(path);
}

bool FakeFileSystem::folderExists(const QString& path) const
{
    const QMutexLocker lock(&m_mutex);
    return m_folders.contains(path);
}

int FakeFileSystem::writeCount(const QString& path) const
{
    const QMutexLocker lock(&m_mutex);
    return m_writes.value(path);
}

int FakeFileSystem::writeCount() const
{
    const QMutexLocker lock(&m_mutex);
    return std::accumulate(m_writes.cbegin(), m_writes.cend(), 0);
}

int FakeFileSystem::readCount(const QString& path) const
{
    const QMutexLocker lock(&m_mutex);
    return m_reads.value(path);
}

} // namespace driftbox
