#include "platform/desktop/PosixFileSystem.h"
#include "support/main/TestMain.h"

#include <array>
#include <csignal>
#include <cstdio>
#include <thread>

#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

constexpr int writerTimeoutMs = 20'000;

// The bytes of the given generation: they contain their length, so that a torn file is detected.
QByteArray generation(int number)
{
    const int size = static_cast<int>(number * 1'000'003LL % 3'000'000);
    return QByteArray::number(size) + '\n' + QByteArray(size, static_cast<char>('a' + number % 26));
}

bool isWhole(const QByteArray& bytes)
{
    const auto end = bytes.indexOf('\n');
    const QByteArray body = bytes.mid(end + 1);
    return end > 0 && body.size() == bytes.left(end).toInt() &&
           (body.isEmpty() || body.count(body.front()) == body.size());
}

// What the helper process does: replaces the file over and over until it is killed, and tells of
// every replacement by one byte.
int writeForever(const QString& path)
{
    // Made beforehand, so that nearly all the time goes into writing.
    std::array<QByteArray, 8> generations;
    for (int number = 0; auto& bytes : generations)
        bytes = generation(++number);

    PosixFileSystem files;
    for (std::size_t i = 0;; i = (i + 1) % generations.size()) {
        if (!files.writeAtomically(path, generations[i]))
            return EXIT_FAILURE;
        std::putchar('.');
        std::fflush(stdout);
    }
}

// Replaces it once by a given number of bytes; prints the error.
int writeOnce(const QString& path, int size)
{
    const auto written = PosixFileSystem().writeAtomically(path, QByteArray(size, 'x'));
    std::fputs(qUtf8Printable(written ? u"written"_s : written.error().message), stdout);
    return EXIT_SUCCESS;
}

mode_t modeOf(const QString& path)
{
    struct stat status = {};
    return stat(qUtf8Printable(path), &status) == 0 ? status.st_mode & 07777U : 0;
}

// Runs `script` with the helper's command line for one write as "$@"; what it printed.
QString outputOf(const QString& script, const QString& path, int size)
{
    QProcess shell;
    shell.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    shell.start(u"/bin/sh"_s,
                {u"-c"_s, script, u"sh"_s, QCoreApplication::applicationFilePath(),
                 u"TestPosixFileSystem"_s, u"--write-once"_s, path, QString::number(size)});
    return shell.waitForFinished(writerTimeoutMs) ? QString::fromUtf8(shell.readAllStandardOutput())
                                                  : u"timed out"_s;
}

bool mayMount()
{
    return QProcess::execute(u"/bin/sh"_s,
                             {u"-c"_s, u"unshare -rm mount -t tmpfs tmpfs /tmp 2>/dev/null"_s}) ==
           0;
}

} // namespace

class TestPosixFileSystem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void writtenBytesAreReadBack()
    {
        QByteArray everyByte;
        for (int i = 0; i < 256; ++i)
            everyByte.append(static_cast<char>(i));

        for (const QByteArray& bytes :
             {QByteArray(), QByteArray("{}"), everyByte.repeated(20'000)}) {
            QVERIFY(m_files.writeAtomically(path(u"file"_s), bytes));
            QCOMPARE(m_files.read(path(u"file"_s)), bytes);
        }
        QCOMPARE(entries(), QStringList{u"file"_s});
    }

    void filesAndFoldersArePrivate()
    {
        const mode_t before = umask(0777);
        const auto restore = qScopeGuard([before] { umask(before); });
        const QString file = path(u"Ünï cödé \n"_s);
        QVERIFY(m_files.writeAtomically(file, "x"));
        QCOMPARE(modeOf(file), 0600U);

        umask(0);
        QFile open(file);
        QVERIFY(open.setPermissions(QFile::ReadOwner | QFile::ReadOther));
        QVERIFY(m_files.writeAtomically(file, "y"));
        QCOMPARE(modeOf(file), 0600U);

        QVERIFY(m_files.createFolder(path(u"a/b/c"_s)));
        for (const QString& folder : {u"a"_s, u"a/b"_s, u"a/b/c"_s})
            QCOMPARE(modeOf(path(folder)), 0700U);
    }

    void makingFoldersReportsWhetherTheyExist()
    {
        QVERIFY(m_files.createFolder(path(u"a"_s)));
        QVERIFY(m_files.createFolder(path(u"a"_s)));
        QVERIFY(m_files.createFolder(path(u"a/b/"_s)));
        QVERIFY(QFileInfo(path(u"a/b"_s)).isDir());

        QVERIFY(m_files.writeAtomically(path(u"file"_s), "x"));
        QVERIFY(!m_files.createFolder(path(u"file"_s)));
        QVERIFY(!m_files.createFolder(path(u"file/below"_s)));
        QVERIFY(!m_files.createFolder(u"/proc/driftbox"_s));
        QVERIFY(!m_files.createFolder(QString()));
    }

    void unreadableFileReadsAsNone()
    {
        QCOMPARE(m_files.read(path(u"missing"_s)), std::nullopt);
        QCOMPARE(m_files.read(m_folder->path()), std::nullopt);
        QCOMPARE(m_files.read(QString()), std::nullopt);
        QCOMPARE(m_files.read(u"/dev/zero"_s), std::nullopt);

        QCOMPARE(mkfifo(qUtf8Printable(path(u"pipe"_s)), 0600), 0);
        QCOMPARE(m_files.read(path(u"pipe"_s)), std::nullopt);
    }

    void filesOfUnknownSizeAreReadCompletely()
    {
        const auto maps = m_files.read(u"/proc/self/maps"_s);
        QVERIFY(maps.has_value());
        QVERIFY(maps->contains("[stack]"));
    }

    void removingReportsWhetherAnythingWasRemoved()
    {
        QVERIFY(m_files.writeAtomically(path(u"file"_s), "x"));
        QVERIFY(m_files.remove(path(u"file"_s)));
        QVERIFY(!m_files.remove(path(u"file"_s)));
        QVERIFY(!m_files.remove(m_folder->path()));
        QCOMPARE(entries(), QStringList());
    }

    void failedWritesReportTheReasonAndLeaveNoFile()
    {
        QCOMPARE(m_files.writeAtomically(path(u"no/file"_s), "x").error().message,
                 path(u"no/file"_s) + u": No such file or directory"_s);

        QVERIFY(m_files.createFolder(path(u"folder"_s)));
        QCOMPARE(m_files.writeAtomically(path(u"folder"_s), "x").error().message,
                 path(u"folder"_s) + u": Is a directory"_s);

        const QString longName = path(QString(252, u'n'));
        QCOMPARE(m_files.writeAtomically(longName, "x").error().message,
                 longName + u": File name too long"_s);
        QCOMPARE(entries(), QStringList{u"folder"_s});
    }

    void symbolicLinksAreKeptAndTheirTargetsReplaced()
    {
        QVERIFY(m_files.createFolder(path(u"elsewhere"_s)));
        QVERIFY(m_files.writeAtomically(path(u"elsewhere/target"_s), "old"));
        QVERIFY(QFile::link(path(u"elsewhere/target"_s), path(u"elsewhere/absolute"_s)));
        QCOMPARE(symlink("elsewhere/absolute", qUtf8Printable(path(u"relative"_s))), 0);

        QVERIFY(m_files.writeAtomically(path(u"relative"_s), "new"));
        QVERIFY(QFileInfo(path(u"relative"_s)).isSymLink());
        QVERIFY(!QFileInfo(path(u"elsewhere/target"_s)).isSymLink());
        QCOMPARE(m_files.read(path(u"elsewhere/target"_s)), "new");

        QVERIFY(m_files.remove(path(u"elsewhere/target"_s)));
        QVERIFY(m_files.writeAtomically(path(u"relative"_s), "again"));
        QCOMPARE(m_files.read(path(u"elsewhere/target"_s)), "again");
    }

    void circularSymbolicLinksAreRejected()
    {
        QVERIFY(QFile::link(path(u"b"_s), path(u"a"_s)));
        QVERIFY(QFile::link(path(u"a"_s), path(u"b"_s)));
        QCOMPARE(m_files.writeAtomically(path(u"a"_s), "x").error().message,
                 path(u"a"_s) + u": Too many levels of symbolic links"_s);
        QCOMPARE(m_files.read(path(u"a"_s)), std::nullopt);
    }

    void leftoverTemporaryFilesAreOverwrittenNotFollowed()
    {
        QVERIFY(m_files.writeAtomically(path(u"other"_s), "precious"));
        QVERIFY(QFile::link(path(u"other"_s), path(u".file.new"_s)));

        QVERIFY(m_files.writeAtomically(path(u"file"_s), "x"));
        QCOMPARE(m_files.read(path(u"other"_s)), "precious");
        QCOMPARE(m_files.read(path(u"file"_s)), "x");
        QCOMPARE(entries(), (QStringList{u"file"_s, u"other"_s}));
    }

    void interruptedWriteKeepsTheOldFile()
    {
        QVERIFY(m_files.writeAtomically(path(u"file"_s), "old"));
        QCOMPARE(outputOf(u"trap '' XFSZ; ulimit -f 8; exec \"$@\""_s, path(u"file"_s), 100'000),
                 path(u"file"_s) + u": File too large"_s);
        QCOMPARE(m_files.read(path(u"file"_s)), "old");
        QCOMPARE(entries(), QStringList{u"file"_s});
    }

    void fullDiskKeepsTheOldFile()
    {
        if (!mayMount())
            QSKIP("needs user namespaces");
        const QString script = uR"sh(cd / && exec unshare -rm sh -c '
                mount -t tmpfs -o size=64k tmpfs %1 && echo old >%1/file && "$@" &&
                echo " $(cat %1/file) $(ls -A %1)"' sh "$@")sh"_s.arg(m_folder->path());
        QCOMPARE(outputOf(script, path(u"file"_s), 100'000),
                 path(u"file"_s) + u": No space left on device old file\n"_s);
        QVERIFY(outputOf(script, path(u"file"_s), 10'000).startsWith(u"written"_s));
    }

    void readOnlyDiskIsAnError()
    {
        if (!mayMount())
            QSKIP("needs user namespaces");
        const QString script =
            uR"sh(cd / && exec unshare -rm sh -c 'mount -t tmpfs -o ro tmpfs %1 && "$@"' sh "$@")sh"_s
                .arg(m_folder->path());
        QCOMPARE(outputOf(script, path(u"file"_s), 1),
                 path(u"file"_s) + u": Read-only file system"_s);
    }

    void unwritableFolderIsAnError()
    {
        QCOMPARE(chmod(qUtf8Printable(m_folder->path()), 0500), 0);
        // The superuser is bound by permissions only without these capabilities.
        const QString bound = geteuid() == 0 ? u"exec setpriv --bounding-set=-dac_override \"$@\""_s
                                             : u"exec \"$@\""_s;
        QCOMPARE(outputOf(bound, path(u"file"_s), 1), path(u"file"_s) + u": Permission denied"_s);
        QCOMPARE(chmod(qUtf8Printable(m_folder->path()), 0700), 0);
    }

    void killedWriterNeverLeavesATornFile()
    {
        constexpr int rounds = 60;
        int leftovers = 0;
        for (int round = 0; round < rounds; ++round) {
            QProcess writer;
            writer.start(QCoreApplication::applicationFilePath(),
                         {u"TestPosixFileSystem"_s, u"--write-forever"_s, path(u"file"_s)});
            for (int written = 0; written <= round % 11;) {
                QVERIFY(writer.waitForReadyRead(writerTimeoutMs));
                written += static_cast<int>(writer.readAllStandardOutput().size());
            }
            writer.kill();
            QVERIFY(writer.waitForFinished(writerTimeoutMs));
            QCOMPARE(writer.exitStatus(), QProcess::CrashExit);

            const auto bytes = m_files.read(path(u"file"_s));
            QVERIFY(bytes.has_value());
            QVERIFY(isWhole(*bytes));
            leftovers += static_cast<int>(entries().size()) - 1;
        }
        qInfo("%d of %d kills hit the middle of a write", leftovers, rounds);

        QVERIFY(m_files.writeAtomically(path(u"file"_s), "x"));
        QCOMPARE(entries(), QStringList{u"file"_s});
    }

    void concurrentWritesOfOneFileAreSerialized()
    {
        std::array<std::thread, 4> writers;
        std::atomic<int> failures = 0;
        for (auto& writer : writers) {
            writer = std::thread([this, &failures] {
                for (int number = 1; number <= 100; ++number)
                    failures +=
                        m_files.writeAtomically(path(u"file"_s), generation(number)) ? 0 : 1;
            });
        }
        for (auto& writer : writers)
            writer.join();
        QCOMPARE(failures, 0);
        QVERIFY(isWhole(m_files.read(path(u"file"_s)).value_or(QByteArray())));
        QCOMPARE(entries(), QStringList{u"file"_s});
    }

    void filesRemovedBeforeTheSyncAreForgotten()
    {
        PosixFileSystem files;
        for (int i = 0; i < 50; ++i) {
            QVERIFY(files.writeAtomically(path(u"file"_s), "x"));
            QVERIFY(files.remove(path(u"file"_s)));
        }
        // The destructor waits; a warning would fail the test.
    }

private:
    [[nodiscard]] QString path(const QString& name) const { return m_folder->filePath(name); }
    [[nodiscard]] QStringList entries() const
    {
        return QDir(m_folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    PosixFileSystem m_files;
    std::unique_ptr<QTemporaryDir> m_folder;
};

static int runTestPosixFileSystem(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == u"--write-forever"_s)
        return writeForever(arguments.value(2));
    if (arguments.value(1) == u"--write-once"_s)
        return writeOnce(arguments.value(2), arguments.value(3).toInt());
    TestPosixFileSystem test;
    return QTest::qExec(&test, argc, argv);
}
DRIFTBOX_TEST_MAIN(TestPosixFileSystem, runTestPosixFileSystem)

#include "TestPosixFileSystem.moc"
