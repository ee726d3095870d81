#include "fakes/FakeFileSystem.h"
#include "platform/desktop/PosixFileSystem.h"
#include "platform/desktop/XdgAutostart.h"
#include "support/main/TestMain.h"

#include <sys/stat.h>

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

const QString folder = u"/config/autostart"_s;
const QString entryPath = folder + u"/app.driftbox.desktop"_s;

QString valueOf(const QByteArray& entry, const QString& key)
{
    for (const QByteArray& line : entry.split('\n')) {
        const QString text = QString::fromUtf8(line);
        if (text.startsWith(key + u'='))
            return text.mid(key.size() + 1);
    }
    return {};
}

} // namespace

class TestXdgAutostart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // No program of that name is installed unless a test installs one.
    void init()
    {
        m_programs = std::make_unique<QTemporaryDir>();
        qputenv("PATH", m_programs->path().toUtf8() + ":/usr/bin:/bin");
    }

    void registeringWritesAnEntryForTheRunningProgram()
    {
        FakeFileSystem files;
        XdgAutostart item(files, folder);
        QVERIFY(item.registerItem());

        const QByteArray entry = files.read(entryPath).value_or(QByteArray());
        const QString running = QCoreApplication::applicationFilePath();
        QVERIFY(entry.startsWith("[Desktop Entry]\n"));
        QCOMPARE(valueOf(entry, u"Type"_s), u"Application"_s);
        QCOMPARE(valueOf(entry, u"Name"_s), u"Drift Box"_s);
        QCOMPARE(valueOf(entry, u"Exec"_s), u'"' + running + u'"');
        QCOMPARE(valueOf(entry, u"TryExec"_s), running);
    }

    void installedProgramTakesPrecedence()
    {
        const QString installed = m_programs->filePath(u"driftbox"_s);
        QVERIFY(QFile::copy(u"/bin/true"_s, installed));
        FakeFileSystem files;
        XdgAutostart item(files, folder);
        QVERIFY(item.registerItem());
        QCOMPARE(valueOf(*files.read(entryPath), u"Exec"_s), u'"' + installed + u'"');
    }

    void registeringAgainRewritesTheEntry()
    {
        FakeFileSystem files;
        XdgAutostart item(files, folder);
        QVERIFY(item.registerItem());
        QVERIFY(item.registerItem());
        files.setFile(entryPath, "[Desktop Entry]\nExec=/old/driftbox\n");
        QVERIFY(item.registerItem());
        QVERIFY(!files.read(entryPath)->contains("/old"));
    }

    void unregisteringRemovesTheEntry()
    {
        FakeFileSystem files;
        XdgAutostart item(files, folder);
        QVERIFY(item.registerItem());
        QVERIFY(item.unregisterItem());
        QVERIFY(!files.exists(entryPath));
    }

    void unregisteringWithoutAnEntrySucceeds()
    {
        FakeFileSystem files;
        QVERIFY(XdgAutostart(files, folder).unregisterItem());
        QCOMPARE(files.writeCount(), 0);
        QVERIFY(!files.folderExists(folder));
    }

    void failuresAreDescribed()
    {
        FakeFileSystem files;
        XdgAutostart item(files, folder);
        files.failWrites(entryPath + u": Read-only file system"_s);
        QCOMPARE(item.registerItem().error().message, entryPath + u": Read-only file system"_s);

        files.succeed();
        QVERIFY(item.registerItem());
        files.failRemovals();
        QCOMPARE(item.unregisterItem().error().message, entryPath + u": cannot be removed"_s);
        QVERIFY(files.exists(entryPath));
    }

    void failureToCreateTheFolderIsDescribed()
    {
        const QTemporaryDir home;
        QFile file(home.filePath(u"config"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));

        PosixFileSystem files;
        const QString blocked = home.filePath(u"config/autostart"_s);
        XdgAutostart item(files, blocked);
        QCOMPARE(item.registerItem().error().message,
                 blocked + u"/app.driftbox.desktop: Not a directory"_s);
        QVERIFY(item.unregisterItem());
    }

    void argumentsAreQuotedAsSpecified_data()
    {
        QTest::addColumn<QString>("argument");
        QTest::addColumn<QString>("quoted");
        QTest::newRow("plain") << u"/usr/bin/driftbox"_s << u"\"/usr/bin/driftbox\""_s;
        QTest::newRow("blank") << u"/opt/Drift Box/run"_s << u"\"/opt/Drift Box/run\""_s;
        QTest::newRow("per cent") << u"/a%f"_s << u"\"/a%%f\""_s;
        QTest::newRow("dollar") << u"/a$b"_s << u"\"/a\\\\$b\""_s;
        QTest::newRow("back-tick") << u"/a`b"_s << u"\"/a\\\\`b\""_s;
        QTest::newRow("quote") << u"/a\"b"_s << u"\"/a\\\\\"b\""_s;
        QTest::newRow("backslash") << u"/a\\b"_s << u"\"/a\\\\\\\\b\""_s;
        QTest::newRow("line break") << u"/a\nb"_s << u"\"/a\\nb\""_s;
        QTest::newRow("letters") << u"/\u00e4\u732b'"_s << u"\"/\u00e4\u732b'\""_s;
    }
    void argumentsAreQuotedAsSpecified()
    {
        QFETCH(const QString, argument);
        QFETCH(const QString, quoted);
        QCOMPARE(quotedForExec(argument), quoted);
    }

    // As parsed by another implementation.
    void entryNamesAnyProgramCorrectly()
    {
        const QTemporaryDir home;
        const QString odd = home.filePath(u"o'd d$HOME `x` \\ \"q\" 100%f"_s);
        const QString program = odd + u"/driftbox"_s;
        const QString entry = home.filePath(u"app.driftbox.desktop"_s);
        QFile desktop(entry);
        QVERIFY(desktop.open(QIODevice::WriteOnly));
        desktop.write(
            u"[Desktop Entry]\nType=Application\nName=x\nExec=%1\n"_s.arg(quotedForExec(program))
                .toUtf8());
        desktop.close();

        QProcess launcher;
        launcher.start(u"/usr/bin/python3"_s,
                       {u"-c"_s,
                        u"import sys\nfrom gi.repository import GLib\n"
                        "entry = GLib.KeyFile()\n"
                        "entry.load_from_file(sys.argv[1], GLib.KeyFileFlags.NONE)\n"
                        "command = entry.get_string('Desktop Entry', 'Exec')\n"
                        "done, arguments = GLib.shell_parse_argv(command)\n"
                        "print(arguments[0].replace('%%', '%'), end='')"_s,
                        entry});
        QVERIFY(launcher.waitForFinished());
        QCOMPARE(QString::fromUtf8(launcher.readAllStandardOutput()), program);
    }

private:
    std::unique_ptr<QTemporaryDir> m_programs;
};

DRIFTBOX_TEST(TestXdgAutostart, QCoreApplication)
#include "TestXdgAutostart.moc"
