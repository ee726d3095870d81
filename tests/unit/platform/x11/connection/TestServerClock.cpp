#include "platform/x11/connection/ServerClock.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace std::chrono_literals;

class TestServerClock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void timeIncreasesAcrossTheWraparound()
    {
        ServerClock clock;
        const std::chrono::steady_clock::time_point start;
        QCOMPARE(clock.extended(0xffff'ff00, start), EventTime(0xffff'ff00));
        QCOMPARE(clock.extended(0x0000'0100, start + 512ms), EventTime(0x1'0000'0100));
        QCOMPARE(clock.extended(0x0000'0200, start + 768ms), EventTime(0x1'0000'0200));
    }

    void longPausesAreCounted()
    {
        ServerClock clock;
        const std::chrono::steady_clock::time_point start;
        const auto first = clock.extended(1'000, start);
        // 30 days are more than half a round, 120 days more than two rounds.
        for (const auto days : {30, 120}) {
            const auto passed = EventTime(std::chrono::hours(24 * days));
            const auto stamp = static_cast<std::uint32_t>((first + passed).count());
            ServerClock copy = clock;
            QCOMPARE(copy.extended(stamp, start + passed + 40ms), first + passed);
        }
    }

    void lateEventKeepsItsTime()
    {
        ServerClock clock;
        const std::chrono::steady_clock::time_point start;
        const auto first = clock.extended(5'000, start);
        QCOMPARE(clock.extended(5'100, start + 3s), first + 100ms);
        QCOMPARE(clock.extended(5'250, start + 3s), first + 250ms);
    }
};

DRIFTBOX_TEST(TestServerClock, QCoreApplication)
#include "TestServerClock.moc"
