#include "platform/desktop/ThreadPoolTaskRunner.h"
#include "support/main/TestMain.h"

#include <atomic>
#include <memory>

#include <QtCore/QSemaphore>
#include <QtCore/QThread>
#include <QtTest/QTest>

using namespace driftbox;

class TestThreadPoolTaskRunner : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void worksOffTheMainThreadAndReportsOnIt()
    {
        ThreadPoolTaskRunner runner;
        QThread* workedOn = nullptr;
        QThread* reportedOn = nullptr;

        runner.run(
            this, [&] { workedOn = QThread::currentThread(); },
            [&] { reportedOn = QThread::currentThread(); });

        QTRY_VERIFY(reportedOn != nullptr);
        QCOMPARE(reportedOn, thread());
        QVERIFY(workedOn != nullptr);
        QVERIFY(workedOn != thread());
    }

    void completionIsReportedAsynchronously()
    {
        ThreadPoolTaskRunner runner;
        QSemaphore worked;
        bool reported = false;

        runner.run(
            this, [&] { worked.release(); }, [&] { reported = true; });
        worked.acquire();

        QVERIFY(!reported);
        QTRY_VERIFY(reported);
    }

    void singleThreadWorksInOrder()
    {
        ThreadPoolTaskRunner runner(1);
        QList<int> worked;
        QList<int> reported;
        for (int i = 0; i < 100; ++i)
            runner.run(
                this, [&, i] { worked.append(i); }, [&, i] { reported.append(i); });

        QTRY_COMPARE(reported.size(), 100);
        QCOMPARE(worked, reported);
        QVERIFY(std::is_sorted(worked.cbegin(), worked.cend()));
    }

    void threadLimitIsRespected()
    {
        ThreadPoolTaskRunner runner(2);
        QSemaphore go;
        std::atomic<int> running = 0;
        std::atomic<int> most = 0;
        int reported = 0;
        for (int i = 0; i < 8; ++i)
            runner.run(
                this,
                [&] {
                    const int now = ++running;
                    int seen = most;
                    while (now > seen && !most.compare_exchange_weak(seen, now)) {
                    }
                    go.acquire();
                    --running;
                },
                [&] { ++reported; });

        QTRY_COMPARE(running.load(), 2);
        go.release(8);
        QTRY_COMPARE(reported, 8);
        QCOMPARE(most.load(), 2);
    }

    void destroyedOwnerIsNotNotified()
    {
        ThreadPoolTaskRunner runner(1);
        auto owner = std::make_unique<QObject>();
        QSemaphore go;
        bool toldTheDead = false;
        bool toldTheLiving = false;

        runner.run(
            owner.get(), [&] { go.acquire(); }, [&] { toldTheDead = true; });
        runner.run(
            this, [] {}, [&] { toldTheLiving = true; });
        owner.reset();
        go.release();

        QTRY_VERIFY(toldTheLiving);
        QVERIFY(!toldTheDead);
    }

    void destructionFinishesRunningTasksAndReportsNothing()
    {
        QSemaphore started;
        std::atomic<bool> finished = false;
        bool reported = false;
        {
            ThreadPoolTaskRunner runner(1);
            runner.run(
                this,
                [&] {
                    started.release();
                    QThread::yieldCurrentThread();
                    finished = true;
                },
                [&] { reported = true; });
            started.acquire();
        }
        QVERIFY(finished);
        QCoreApplication::processEvents();
        QVERIFY(!reported);
    }

    void taskMayDestroyTheRunner()
    {
        auto runner = std::make_unique<ThreadPoolTaskRunner>(1);
        bool reported = false;

        runner->run(
            this, [] {},
            [&] {
                runner.reset();
                reported = true;
            });

        QTRY_VERIFY(reported);
        QVERIFY(!runner);
    }

    void capturesOfATaskAreReleasedOnTheMainThread()
    {
        ThreadPoolTaskRunner runner(1);
        QThread* releasedOn = nullptr;
        bool reported = false;
        {
            const std::shared_ptr<int> held(new int(0), [&](const int* value) {
                releasedOn = QThread::currentThread();
                delete value;
            });
            runner.run(
                this, [held] { ++*held; }, [&, held] { reported = true; });
        }

        QTRY_VERIFY(reported);
        QTRY_VERIFY(releasedOn != nullptr);
        QCOMPARE(releasedOn, thread());
    }
};

DRIFTBOX_TEST(TestThreadPoolTaskRunner, QCoreApplication)
#include "TestThreadPoolTaskRunner.moc"
