#include "platform/desktop/SystemClock.h"
#include "support/main/TestMain.h"

#include <cmath>

#include <QtCore/QElapsedTimer>
#include <QtTest/QTest>

using namespace driftbox;
using namespace std::chrono_literals;

class TestSystemClock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nowIsTheWallClockTime()
    {
        const double expected =
            Instant::fromDateTime(QDateTime::currentDateTimeUtc()).referenceSeconds();
        QVERIFY(std::abs(SystemClock().now().referenceSeconds() - expected) < 5.0);
    }

    void stepsRunLaterInOrderOfTheirDelay()
    {
        SystemClock clock;
        QList<int> order;
        QElapsedTimer elapsed;
        elapsed.start();
        clock.after(60ms, this, [&] { order.append(60); });
        clock.after(0ms, this, [&] { order.append(0); });
        clock.after(30ms, this, [&] { order.append(30); });
        QVERIFY(order.isEmpty());

        QTRY_COMPARE(order, (QList<int>{0, 30, 60}));
        QVERIFY(elapsed.elapsed() >= 60);
    }

    void stepsOfADestroyedOwnerDoNotRun()
    {
        SystemClock clock;
        bool ran = false;
        bool later = false;
        {
            QObject owner;
            clock.after(0ms, &owner, [&] { ran = true; });
        }
        clock.after(10ms, this, [&] { later = true; });
        QTRY_VERIFY(later);
        QVERIFY(!ran);
    }

    void repetitionEndsWithItsHandle()
    {
        SystemClock clock;
        int runs = 0;
        auto repetition = clock.every(5ms, [&] { ++runs; });
        QCOMPARE(runs, 0);
        QTRY_VERIFY(runs >= 3);

        repetition.reset();
        const int before = runs;
        bool later = false;
        clock.after(30ms, this, [&] { later = true; });
        QTRY_VERIFY(later);
        QCOMPARE(runs, before);
    }

    void stepMayEndItsOwnRepetition()
    {
        SystemClock clock;
        int runs = 0;
        std::unique_ptr<Repetition> repetition;
        repetition = clock.every(1ms, [&] {
            ++runs;
            repetition.reset();
            ++runs; // the step itself outlives its handle
        });
        bool later = false;
        clock.after(30ms, this, [&] { later = true; });
        QTRY_VERIFY(later);
        QCOMPARE(runs, 2);
    }
};

DRIFTBOX_TEST(TestSystemClock, QCoreApplication)
#include "TestSystemClock.moc"
