#include "platform/desktop/TerminationSignals.h"
#include "support/main/TestMain.h"

#include <csignal>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;

class TestTerminationSignals : public QObject
{
    Q_OBJECT

    using Handler = void (*)(int);

    [[nodiscard]] static Handler handlerOf(int signal)
    {
        struct sigaction action = {};
        sigaction(signal, nullptr, &action);
        return action.sa_handler;
    }

private Q_SLOTS:
    void signalsAreReportedInsteadOfEndingTheProcess_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("session") << SIGTERM;
        QTest::newRow("keyboard") << SIGINT;
        QTest::newRow("terminal") << SIGHUP;
    }

    void signalsAreReportedInsteadOfEndingTheProcess()
    {
        QFETCH(int, signal);
        const TerminationSignals signals;
        const QSignalSpy received(&signals, &TerminationSignals::received);
        raise(signal);
        QCOMPARE(received.count(), 0); // not before the event loop's turn
        QTRY_COMPARE(received.count(), 1);
        QVERIFY(handlerOf(signal) == SIG_DFL); // the next one ends the process
    }

    void ignoredSignalsStayIgnored()
    {
        std::signal(SIGHUP, SIG_IGN);
        {
            const TerminationSignals signals;
            QVERIFY(handlerOf(SIGHUP) == SIG_IGN);
        }
        QVERIFY(handlerOf(SIGHUP) == SIG_IGN);
        std::signal(SIGHUP, SIG_DFL);
    }

    void destructionRestoresTheDefaultHandlers()
    {
        {
            const TerminationSignals signals;
            QVERIFY(handlerOf(SIGTERM) != SIG_DFL);
        }
        for (const int signal : {SIGTERM, SIGINT, SIGHUP})
            QVERIFY(handlerOf(signal) == SIG_DFL);
    }
};

DRIFTBOX_TEST(TestTerminationSignals, QCoreApplication)
#include "TestTerminationSignals.moc"
