#include "platform/ScreenSpace.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;

namespace {

// 1440x900 points at 1x, to its left 1280x720 points at 2x with its top 100 points lower.
std::vector<Screen> stackedScreens()
{
    return {
        {.frame = {0, 0, 1440, 900},
         .visibleFrame = {0, 0, 1440, 875},
         .deviceFrame = {2560, 0, 1440, 900},
         .scale = 1.0},
        {.frame = {-1280, 80, 1280, 720},
         .visibleFrame = {-1280, 80, 1280, 720},
         .deviceFrame = {0, 100, 2560, 1440},
         .scale = 2.0},
    };
}

} // namespace

class TestScreenSpace : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void flippingSwapsTopAndBottom()
    {
        QCOMPARE(ScreenSpace::flipped(QRectF(100, 200, 1, 18), 900), QRectF(100, 682, 1, 18));
        QCOMPARE(ScreenSpace::flipped(QPointF(100, 200), 900), QPointF(100, 700));
    }

    void flippingTwiceChangesNothing()
    {
        const QRectF rectangle(-10.5, 20.25, 30, 40);
        QCOMPARE(ScreenSpace::flipped(ScreenSpace::flipped(rectangle, 900), 900), rectangle);
    }

    void primaryScreenMayHaveAnOffset()
    {
        const QRectF primary(1280, 100, 1440, 900);
        QCOMPARE(ScreenSpace::fromToolkit(primary, primary), QRectF(0, 0, 1440, 900));
        QCOMPARE(ScreenSpace::fromToolkit(QRectF(0, 0, 1280, 720), primary),
                 QRectF(-1280, 280, 1280, 720));
        QCOMPARE(ScreenSpace::fromToolkit(QPointF(1280, 1000), primary), QPointF(0, 0));
        const QRectF note(-1200, 300, 240, 200);
        QCOMPARE(ScreenSpace::toToolkit(note, primary), QRectF(80, 500, 240, 200));
        QCOMPARE(ScreenSpace::fromToolkit(ScreenSpace::toToolkit(note, primary), primary), note);
    }

    void pixelsConvertToPointsByTheScaleOfTheirScreen()
    {
        QCOMPARE(ScreenSpace::desktopFromDevice(QRectF(2660, 200, 1, 18), stackedScreens()),
                 QRectF(100, 200, 1, 18));
        QCOMPARE(ScreenSpace::desktopFromDevice(QRectF(200, 300, 2, 36), stackedScreens()),
                 QRectF(-1180, 200, 1, 18));
    }

    void screenIsChosenByTheCenter()
    {
        // Both cross the border; the first belongs to the left screen, the second to the
        // right.
        QCOMPARE(ScreenSpace::desktopFromDevice(QRectF(2540, 200, 30, 20), stackedScreens()),
                 QRectF(-10, 150, 15, 10));
        QCOMPARE(ScreenSpace::desktopFromDevice(QRectF(2550, 200, 30, 20), stackedScreens()),
                 QRectF(-10, 200, 30, 20));
    }

    void nothingIsConvertedOffTheScreens()
    {
        QCOMPARE(ScreenSpace::desktopFromDevice(QRectF(-10, -10, 2, 2), stackedScreens()),
                 std::nullopt);
        QCOMPARE(ScreenSpace::desktopFromDevice(QRectF(2, 2, 2, 2), {}), std::nullopt);
    }
};

DRIFTBOX_TEST(TestScreenSpace, QCoreApplication)
#include "TestScreenSpace.moc"
