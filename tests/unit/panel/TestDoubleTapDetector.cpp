#include "panel/DoubleTapDetector.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace std::chrono_literals;

class TestDoubleTapDetector : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstTapIsNotADoubleTap()
    {
        DoubleTapDetector detector;
        QVERIFY(!detector.registerModifierDown(0ms, 300ms));
    }

    void secondTapWithinTheThresholdCompletesADoubleTap_data()
    {
        QTest::addColumn<int>("secondTapMs");
        QTest::addColumn<int>("thresholdMs");
        QTest::addColumn<bool>("completes");
        QTest::newRow("well within") << 250 << 300 << true;
        QTest::newRow("on the threshold") << 300 << 300 << true;
        QTest::newRow("just over") << 301 << 300 << false;
        QTest::newRow("threshold zero, a moment later") << 1 << 0 << false;
        QTest::newRow("threshold zero, same moment") << 0 << 0 << true;
        QTest::newRow("negative threshold") << 0 << -100 << false;
    }
    void secondTapWithinTheThresholdCompletesADoubleTap()
    {
        QFETCH(int, secondTapMs);
        QFETCH(int, thresholdMs);
        QFETCH(bool, completes);
        const DoubleTapDetector::Threshold threshold(thresholdMs / 1000.0);

        DoubleTapDetector detector;
        detector.registerModifierDown(10'000ms, threshold);
        QCOMPARE(detector.registerModifierDown(10'000ms + EventTime(secondTapMs), threshold),
                 completes);
    }

    void thresholdIsInclusive()
    {
        for (int milliseconds = 0; milliseconds <= 2'000; ++milliseconds) {
            const DoubleTapDetector::Threshold threshold(milliseconds / 1000.0);
            DoubleTapDetector detector;
            detector.registerModifierDown(123'456'789ms, threshold);
            QVERIFY(
                detector.registerModifierDown(123'456'789ms + EventTime(milliseconds), threshold));
        }
    }

    void lateSecondTapCountsAsFirst()
    {
        DoubleTapDetector detector;
        detector.registerModifierDown(0ms, 300ms);
        QVERIFY(!detector.registerModifierDown(301ms, 300ms));
        QVERIFY(detector.registerModifierDown(601ms, 300ms));
    }

    void thirdQuickTapCompletesAnotherDoubleTap()
    {
        DoubleTapDetector detector;
        QVERIFY(!detector.registerModifierDown(0ms, 300ms));
        QVERIFY(detector.registerModifierDown(100ms, 300ms));
        QVERIFY(detector.registerModifierDown(200ms, 300ms));
    }

    void keyBetweenTheTapsCancelsOnlyThatPair()
    {
        DoubleTapDetector detector;
        detector.registerModifierDown(0ms, 300ms);
        detector.registerKeyPress();
        QVERIFY(!detector.registerModifierDown(100ms, 300ms));
        QVERIFY(detector.registerModifierDown(200ms, 300ms));
    }

    void keyBeforeTheFirstTapDoesNotMatter()
    {
        DoubleTapDetector detector;
        detector.registerKeyPress();
        detector.registerModifierDown(0ms, 300ms);
        QVERIFY(detector.registerModifierDown(100ms, 300ms));
    }
};

DRIFTBOX_TEST(TestDoubleTapDetector, QCoreApplication)
#include "TestDoubleTapDetector.moc"
