#include "app/CommandLine.h"
#include "core/AppConfig.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestCommandLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noArgumentsPrintAndOpenNothing()
    {
        const auto commandLine = CommandLine::parse({}, u"/folder/me"_s);
        QVERIFY(!commandLine.answer);
        QVERIFY(commandLine.documents.isEmpty());
    }

    void relativePathsResolveAgainstTheWorkingDirectory()
    {
        const auto commandLine = CommandLine::parse(
            {u"a b.md"_s, u"/tmp/c.md"_s, u"file:///d%20e.md"_s, u"../f.md"_s}, u"/folder/me"_s);
        QVERIFY(!commandLine.answer);
        QStringList files;
        for (const QUrl& document : commandLine.documents)
            files << document.toLocalFile();
        QCOMPARE(files, QStringList({u"/folder/me/a b.md"_s, u"/tmp/c.md"_s, u"/d e.md"_s,
                                     u"/folder/f.md"_s}));
    }

    void everythingAfterADoubleDashIsAFile()
    {
        const auto commandLine = CommandLine::parse({u"--"_s, u"--help"_s}, u"/"_s);
        QVERIFY(!commandLine.answer);
        QCOMPARE(commandLine.documents, QList{QUrl::fromLocalFile(u"/--help"_s)});
    }

    void helpAndVersionPrintAnAnswer()
    {
        QVERIFY(CommandLine::parse({u"--help"_s}, u"/"_s).answer->startsWith(u"Usage: driftbox"));
        const auto version = CommandLine::parse({u"a.md"_s, u"--version"_s}, u"/"_s);
        QCOMPARE(version.answer, u"Drift Box %1\n"_s.arg(AppConfig::version()));
        QVERIFY(version.isUnderstood);
    }

    void unknownOptionIsAnError()
    {
        const auto commandLine = CommandLine::parse({u"--frob"_s}, u"/"_s);
        QVERIFY(!commandLine.isUnderstood);
        QVERIFY(commandLine.answer->startsWith(u"Unknown option: --frob"));
    }
};

DRIFTBOX_TEST(TestCommandLine, QCoreApplication)
#include "TestCommandLine.moc"
