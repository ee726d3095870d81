#include "core/Log.h"
#include "support/main/TestMain.h"

#include <cstdio>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <QtCore/QProcess>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(example, "ExampleType")

constexpr int timeoutMs = 20'000;
constexpr auto journalSocket = "/run/systemd/journal/socket";

// How the session manager tells a program that its standard error is the journal.
QByteArray streamOfStandardError()
{
    struct stat status = {};
    fstat(STDERR_FILENO, &status);
    return QByteArray::number(static_cast<qulonglong>(status.st_dev)) + ':' +
           QByteArray::number(static_cast<qulonglong>(status.st_ino));
}

// A journal that prints what it is sent. Valid until the process ends.
int listenAsJournal()
{
    const int journal = socket(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK, 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::snprintf(address.sun_path, sizeof address.sun_path, "%s", journalSocket);
    if (bind(journal, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        std::perror("bind");
    return journal;
}

void printReceived(int journal)
{
    char datagram[65536];
    for (auto size = recv(journal, datagram, sizeof datagram, 0); size >= 0;
         size = recv(journal, datagram, sizeof datagram, 0))
        std::fwrite(datagram, 1, static_cast<size_t>(size), stdout);
}

void logOfEveryLevel()
{
    qCDebug(example).noquote() << u"detail"_s;
    qCInfo(example).noquote() << u"progress 100% %s %n"_s;
    qCWarning(example).noquote() << u"notable \u00e4\u732b"_s;
    qCCritical(example).noquote() << u"failure"_s;
}

// What the helper process does; `where` is the kind of standard error it was given.
int helper(const QString& where)
{
    const int journal = where == u"journal"_s ? listenAsJournal() : -1;
    if (where == u"journal"_s || where == u"unreachable"_s)
        qputenv("JOURNAL_STREAM", streamOfStandardError());
    else if (where == u"other"_s)
        qputenv("JOURNAL_STREAM", "1:2");
    Log::install();
    if (where == u"lines"_s)
        qCInfo(example).noquote() << u"first\nsecond\r\n\tthird"_s;
    else
        logOfEveryLevel();
    printReceived(journal);
    return EXIT_SUCCESS;
}

struct Output
{
    QByteArray standardOutput;
    QList<QByteArray> errorLines;
};

Output run(const QString& where, const QStringList& launcher = {})
{
    QStringList command = launcher;
    command << QCoreApplication::applicationFilePath() << u"TestLog"_s << u"--log"_s << where;
    QProcess process;
    process.start(command.first(), command.mid(1));
    process.waitForFinished(timeoutMs);
    QList<QByteArray> lines = process.readAllStandardError().split('\n');
    if (lines.last().isEmpty())
        lines.removeLast();
    return {process.readAllStandardOutput(), lines};
}

// A private /run, so that the helper can stand in for the journal.
QStringList inPrivateRun(const QString& prepare)
{
    return {u"unshare"_s,
            u"-rm"_s,
            u"sh"_s,
            u"-c"_s,
            u"mount -t tmpfs tmpfs /run && "_s + prepare + u" exec \"$@\""_s,
            u"sh"_s};
}

bool mayMount()
{
    QProcess attempt;
    const QStringList command = inPrivateRun(QString());
    attempt.start(command.first(), command.mid(1) << u"true"_s);
    return attempt.waitForFinished(timeoutMs) && attempt.exitCode() == 0;
}

} // namespace

class TestLog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void standardErrorGetsOneLinePerMessage_data()
    {
        QTest::addColumn<QString>("where");
        QTest::newRow("no journal") << u"terminal"_s;
        QTest::newRow("another stream is the journal") << u"other"_s;
    }
    void standardErrorGetsOneLinePerMessage()
    {
        QFETCH(const QString, where);
        const QList<QByteArray> lines = run(where).errorLines;
        const QStringList expected = {u"debug app.driftbox:ExampleType detail"_s,
                                      u"info app.driftbox:ExampleType progress 100% %s %n"_s,
                                      u"notice app.driftbox:ExampleType notable \u00e4\u732b"_s,
                                      u"error app.driftbox:ExampleType failure"_s};
        QCOMPARE(lines.size(), expected.size());
        for (qsizetype i = 0; i < lines.size(); ++i) {
            const QRegularExpression line(
                u"^\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3} "_s +
                QRegularExpression::escape(expected.at(i)) + u'$');
            QVERIFY2(line.match(QString::fromUtf8(lines.at(i))).hasMatch(),
                     lines.at(i).constData());
        }
    }

    void lineBreaksInMessagesBecomeSpaces()
    {
        const QList<QByteArray> lines = run(u"lines"_s).errorLines;
        QCOMPARE(lines.size(), 1);
        QVERIFY2(lines.first().endsWith(" first second   third"), lines.first().constData());
    }

    void journalReceivesStructuredFields()
    {
        if (!mayMount())
            QSKIP("needs user namespaces");
        const Output output =
            run(u"journal"_s, inPrivateRun(u"mkdir -p /run/systemd/journal &&"_s));
        QCOMPARE(output.errorLines, QList<QByteArray>());
        QCOMPARE(output.standardOutput.count("SUBSYSTEM=app.driftbox\n"), 4);
        QCOMPARE(output.standardOutput.count("CATEGORY=ExampleType\n"), 4);
        for (const auto* field :
             {"MESSAGE=detail\n", "PRIORITY=7\n", "MESSAGE=progress 100% %s %n\n", "PRIORITY=6\n",
              "MESSAGE=notable \u00e4\u732b\n", "PRIORITY=5\n", "MESSAGE=failure\n",
              "PRIORITY=3\n"})
            QVERIFY2(output.standardOutput.contains(field), field);
    }

    void messagesGoToStandardErrorWithoutAJournal()
    {
        if (!mayMount())
            QSKIP("needs user namespaces");
        const Output output = run(u"unreachable"_s, inPrivateRun(QString()));
        QCOMPARE(output.errorLines.size(), 4);
        QVERIFY(output.errorLines.last().endsWith(" error app.driftbox:ExampleType failure"));
    }
};

static int runTestLog(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == u"--log"_s)
        return helper(arguments.value(2));
    TestLog test;
    return QTest::qExec(&test, argc, argv);
}
DRIFTBOX_TEST_MAIN(TestLog, runTestLog)

#include "TestLog.moc"
