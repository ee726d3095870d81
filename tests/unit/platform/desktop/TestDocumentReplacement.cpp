#include "platform/desktop/PosixFileSystem.h"
#include "support/main/TestMain.h"

#include <cstdio>

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

constexpr auto replaceOnce = "--replace-once";

// What the helper process does: replaces the document by that many bytes; prints the error.
int replaceDocument(const QString& path, int size)
{
    const auto written = PosixFileSystem().replaceDocument(path, QByteArray(size, 'x'));
    std::fputs(qUtf8Printable(written ? u"written"_s : written.error().message), stdout);
    return EXIT_SUCCESS;
}

} // namespace

class TestDocumentReplacement : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void newTextReplacesTheOldAndLeavesNoOtherFile()
    {
        write("old");
        QVERIFY(m_files.replaceDocument(path(), "new"));
        QCOMPARE(m_files.read(path()), QByteArray("new"));
        QCOMPARE(entries(), QStringList{u"doc.md"_s});
    }

    void permissionsAreKept_data()
    {
        QTest::addColumn<int>("mode");
        for (const int mode : {0600, 0640, 0644, 0664, 0755})
            QTest::addRow("%o", static_cast<unsigned>(mode)) << mode;
    }

    void permissionsAreKept()
    {
        QFETCH(int, mode);
        write("old");
        QCOMPARE(chmod(qUtf8Printable(path()), static_cast<mode_t>(mode)), 0);
        QVERIFY(m_files.replaceDocument(path(), "new"));
        QCOMPARE(modeOf(path()), mode);
    }

    void newFileGetsTheDefaultPermissions()
    {
        const mode_t before = umask(0027);
        QVERIFY(m_files.replaceDocument(path(), "new"));
        umask(before);
        QCOMPARE(modeOf(path()), 0640);
    }

    void symbolicLinkIsKeptAndItsTargetReplaced()
    {
        QVERIFY(QDir(m_folder->path()).mkdir(u"elsewhere"_s));
        const QString target = m_folder->filePath(u"elsewhere/real.md"_s);
        QVERIFY(m_files.replaceDocument(target, "old"));
        QVERIFY(QFile::link(u"elsewhere/real.md"_s, path()));
        QVERIFY(m_files.replaceDocument(path(), "new"));
        QVERIFY(QFileInfo(path()).isSymLink());
        QCOMPARE(m_files.read(target), QByteArray("new"));
    }

    void userFileThatLooksTemporaryIsKept()
    {
        write("old");
        QFile other(m_folder->filePath(u".doc.md.new"_s));
        QVERIFY(other.open(QIODevice::WriteOnly));
        QVERIFY(m_files.replaceDocument(path(), "new"));
        QCOMPARE(entries(), QStringList({u".doc.md.new"_s, u"doc.md"_s}));
    }

    void protectedFileIsNotReplaced()
    {
        write("old");
        QCOMPARE(chmod(qUtf8Printable(path()), 0444), 0);
        QCOMPARE(m_files.replaceDocument(path(), "new").error().message,
                 path() + u": Permission denied"_s);
        QCOMPARE(m_files.read(path()), QByteArray("old"));
        QCOMPARE(entries(), QStringList{u"doc.md"_s});
    }

    void missingFolderIsAnError()
    {
        const QString lost = path() + u"/none/doc.md"_s;
        QCOMPARE(m_files.replaceDocument(lost, "new").error().message,
                 lost + u": No such file or directory"_s);
    }

    void fullDiskKeepsTheOldFile()
    {
        write("old");
        QProcess shell;
        shell.start(u"/bin/sh"_s,
                    {u"-c"_s, u"trap '' XFSZ; ulimit -f 8; exec \"$@\""_s, u"sh"_s,
                     QCoreApplication::applicationFilePath(), u"TestDocumentReplacement"_s,
                     QString::fromLatin1(replaceOnce), path(), u"100000"_s});
        QVERIFY(shell.waitForFinished());
        QCOMPARE(QString::fromUtf8(shell.readAllStandardOutput()), path() + u": File too large"_s);
        QCOMPARE(m_files.read(path()), QByteArray("old"));
        QCOMPARE(entries(), QStringList{u"doc.md"_s});
    }

private:
    void write(const QByteArray& bytes)
    {
        QFile file(path());
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }

    [[nodiscard]] QString path() const { return m_folder->filePath(u"doc.md"_s); }

    [[nodiscard]] QStringList entries() const
    {
        return QDir(m_folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    [[nodiscard]] static int modeOf(const QString& path)
    {
        struct stat status = {};
        return stat(qUtf8Printable(path), &status) == 0 ? static_cast<int>(status.st_mode & 07777U)
                                                        : -1;
    }

    PosixFileSystem m_files;
    std::unique_ptr<QTemporaryDir> m_folder;
};

static int runTestDocumentReplacement(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1StringView(replaceOnce))
        return replaceDocument(arguments.value(2), arguments.value(3).toInt());
    TestDocumentReplacement test;
    return QTest::qExec(&test, argc, argv);
}
DRIFTBOX_TEST_MAIN(TestDocumentReplacement, runTestDocumentReplacement)

#include "TestDocumentReplacement.moc"
