#include "platform/desktop/PosixFileSystem.h"

#include "platform/FileDescriptor.h"

#include <cerrno>
#include <cstdio>

#include <climits>
#include <fcntl.h>
#include <sys/stat.h>

#include <QtCore/QFile>
#include <QtCore/QMutexLocker>
#include <QtCore/QRandomGenerator>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr mode_t fileMode = 0600;
constexpr mode_t folderMode = 0700;
constexpr int linkLimit = 40;

Error failure(const QString& path, int error)
{
    return {u"%1: %2"_s.arg(path, qt_error_string(error))};
}

QByteArray folderOf(const QByteArray& path)
{
    return path.left(path.lastIndexOf('/') + 1);
}

bool isFolder(const QByteArray& path)
{
    struct stat status = {};
    return stat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

// Repeats a system call until it is not interrupted by a signal.
template <typename Call>
auto uninterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

// Resolves symbolic links. The resulting path need not exist. None, with errno set, when the links
// form a cycle.
std::optional<QByteArray> followLinks(QByteArray path)
{
    for (int i = 0; i < linkLimit; ++i) {
        QByteArray target(PATH_MAX, Qt::Uninitialized);
        const auto length = readlink(path.constData(), target.data(), PATH_MAX);
        if (length < 0)
            return path;
        target.truncate(length);
        path = target.startsWith('/') ? target : folderOf(path) + target;
    }
    errno = ELOOP;
    return std::nullopt;
}

bool writeFully(int descriptor, const QByteArray& bytes)
{
    for (qsizetype done = 0; done < bytes.size();) {
        const auto written = uninterrupted([&] {
            return write(descriptor, bytes.constData() + done,
                         static_cast<size_t>(bytes.size() - done));
        });
        if (written < 0)
            return false;
        done += written;
    }
    return true;
}

// Creates a new file at `path`, replacing any existing one. False with errno set.
bool writeNewFile(const QByteArray& path, const QByteArray& bytes)
{
    unlink(path.constData());
    FileDescriptor file(uninterrupted([&] {
        return open(path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                    fileMode);
    }));
    // The mode passed to open() has been reduced by the umask.
    return file.isOpen() && fchmod(file.get(), fileMode) == 0 && writeFully(file.get(), bytes) &&
           file.close();
}

// Whether the file, if it exists, is writable. False with errno set. The superuser may write any
// file, but one without any write permission is meant to be kept.
bool mayReplace(const QByteArray& path)
{
    struct stat status = {};
    if (stat(path.constData(), &status) != 0)
        return errno == ENOENT;
    if ((status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) {
        errno = EACCES;
        return false;
    }
    return faccessat(AT_FDCWD, path.constData(), W_OK, AT_EACCESS) == 0;
}

// Creates a new file at `path` with the owner and permissions of the one at `model`, if that
// exists, and syncs it to disk. False with errno set.
bool writeDocument(const QByteArray& path, const QByteArray& bytes, const QByteArray& model)
{
    constexpr mode_t defaultMode = 0666; // reduced by the umask
    FileDescriptor file(uninterrupted([&] {
        return open(path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                    defaultMode);
    }));
    if (!file.isOpen())
        return false;
    struct stat status = {};
    if (stat(model.constData(), &status) == 0) {
        // Only the superuser can change the owner; otherwise the file stays with this user.
        if (fchown(file.get(), status.st_uid, status.st_gid) != 0)
            status.st_mode &= ~static_cast<mode_t>(S_ISUID | S_ISGID);
        if (fchmod(file.get(), status.st_mode & 07777U) != 0)
            return false;
    }
    return writeFully(file.get(), bytes) && fsync(file.get()) == 0 && file.close();
}

} // namespace

// Serializes threads that write the same file.
class PosixFileSystem::PathLock
{
public:
    PathLock(PosixFileSystem& fileSystem, const QByteArray& path)
        : m_fileSystem(fileSystem)
        , m_path(path)
    {
        QMutexLocker lock(&fileSystem.m_mutex);
        while (fileSystem.m_pathsInUse.contains(path))
            fileSystem.m_pathReleased.wait(lock.mutex());
        fileSystem.m_pathsInUse.insert(path);
    }
    Q_DISABLE_COPY_MOVE(PathLock)
    ~PathLock()
    {
        const QMutexLocker lock(&m_fileSystem.m_mutex);
        m_fileSystem.m_pathsInUse.remove(m_path);
        m_fileSystem.m_pathReleased.wakeAll();
    }

private:
    PosixFileSystem& m_fileSystem;
    QByteArray m_path;
};

std::optional<QByteArray> PosixFileSystem::read(const QString& path) const
{
    // Without O_NONBLOCK opening a pipe would wait for a writer.
    const FileDescriptor file(uninterrupted([name = QFile::encodeName(path)] {
        return open(name.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    }));
    struct stat status = {};
    if (!file.isOpen() || fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;

    // One extra byte detects the end of the file without growing the buffer.
    QByteArray bytes(static_cast<qsizetype>(status.st_size) + 1, Qt::Uninitialized);
    for (qsizetype done = 0;;) {
        if (done == bytes.size())
            bytes.resize(bytes.size() * 2);
        const auto length = uninterrupted([&] {
            return ::read(file.get(), bytes.data() + done,
                          static_cast<size_t>(bytes.size() - done));
        });
        if (length < 0)
            return std::nullopt;
        if (length == 0) {
            bytes.truncate(done);
            return bytes;
        }
        done += length;
    }
}

Expected<void> PosixFileSystem::writeAtomically(const QString& path, const QByteArray& bytes)
{
    const auto target = followLinks(QFile::encodeName(path));
    if (!target)
        return failure(path, errno);
    const QByteArray folder = folderOf(*target);
    const QByteArray temporary = folder + '.' + target->mid(folder.size()) + ".new";

    const PathLock lock(*this, temporary);
    if (!writeNewFile(temporary, bytes) ||
        rename(temporary.constData(), target->constData()) != 0) {
        const int error = errno;
        unlink(temporary.constData());
        return failure(path, error);
    }
    m_sync.schedule(*target);
    return {};
}

Expected<void> PosixFileSystem::replaceDocument(const QString& path, const QByteArray& bytes)
{
    const auto target = followLinks(QFile::encodeName(path));
    if (!target || !mayReplace(*target))
        return failure(path, errno);
    // A random name, so that no file of the user is overwritten.
    const QByteArray temporary =
        *target + '.' + QByteArray::number(QRandomGenerator::system()->generate64(), 16) + ".new";
    if (writeDocument(temporary, bytes, *target) &&
        rename(temporary.constData(), target->constData()) == 0)
        return {};
    const int error = errno;
    unlink(temporary.constData());
    return failure(path, error);
}

bool PosixFileSystem::createFolder(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    for (qsizetype end = name.indexOf('/', 1); end > 0; end = name.indexOf('/', end + 1))
        mkdir(name.left(end).constData(), folderMode);
    mkdir(name.constData(), folderMode);
    return isFolder(name);
}

bool PosixFileSystem::remove(const QString& path)
{
    return unlink(QFile::encodeName(path).constData()) == 0;
}

} // namespace driftbox
