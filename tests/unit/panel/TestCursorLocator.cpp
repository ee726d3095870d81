#include "panel/CursorLocator.h"

#include "fakes/FakeCaretLookup.h"
#include "fakes/FakeScreens.h"
#include "support/main/TestMain.h"

#include <limits>

#include <QtTest/QTest>

using namespace driftbox;

namespace {

using Origin = std::optional<QPointF>;

constexpr QSizeF panelSize(552, 648);
constexpr qreal infinity = std::numeric_limits<qreal>::infinity();

const Screen primary{QRectF(0, 0, 1440, 900), QRectF(0, 0, 1440, 875), QRect(), 1.0};
// To the left of the primary screen, its lower edge 100 points above the primary's.
const Screen left{QRectF(-1280, 100, 1280, 800), QRectF(-1280, 140, 1280, 760), QRect(), 1.0};

Origin originFor(const QRectF& caret, const std::vector<Screen>& screens = {primary})
{
    return CursorLocator::originFromCaretRect(caret, panelSize, screens);
}

/// A locator whose answer a test looks at.
struct Search
{
    Search()
        : locator(lookup, screens)
    {
    }

    void start()
    {
        locator.panelOrigin(panelSize, &owner, [this](Origin answer) {
            ++answers;
            origin = answer;
        });
    }

    QObject owner;
    FakeCaretLookup lookup;
    FakeScreens screens;
    CursorLocator locator;
    int answers = 0;
    Origin origin;
};

} // namespace

class TestCursorLocator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void panelIsPlacedBelowTheCaret() { QCOMPARE(originFor({100, 200, 1, 18}), Origin({100, 28})); }

    void panelIsPlacedAboveTheCaretWithoutRoomBelow()
    {
        QCOMPARE(originFor({100, 700, 1, 18}), Origin({100, 206}));
    }

    void panelMayUseTheLastPointBelowTheCaret()
    {
        QCOMPARE(originFor({100, 228, 1, 18}), Origin({100, 0}));
        QCOMPARE(originFor({100, 228.5, 1, 18}).value().y(), 900 - 228.5 + 6 - 450.5);
    }

    void panelAboveTheCaretIsClampedToTheVisibleFrame()
    {
        // 900 - 400 + 6 + 648 would reach far over the bar at the top.
        QCOMPARE(originFor({100, 400, 1, 18}), Origin({100, 875 - 648}));
    }

    void panelIsClampedToTheRightEdge()
    {
        QCOMPARE(originFor({1420, 200, 1, 18}), Origin({1440 - 552, 28}));
    }

    void panelIsClampedToTheLeftEdge()
    {
        Screen docked = primary;
        docked.visibleFrame = QRectF(64, 0, 1376, 875);
        QCOMPARE(originFor({10, 200, 1, 18}, {docked}), Origin({64, 28}));
    }

    void leftEdgeTakesPrecedenceOnANarrowScreen()
    {
        const Screen narrow{QRectF(0, 0, 480, 900), QRectF(0, 0, 480, 900), QRect(), 1.0};
        QCOMPARE(originFor({300, 100, 1, 18}, {narrow}), Origin({0, 128}));
    }

    void topIsNotClampedBelowTheCaret()
    {
        // The caret stands in the bar at the top; the panel follows it, not the visible frame.
        Screen tall = primary;
        tall.visibleFrame = QRectF(0, 0, 1440, 700);
        QCOMPARE(originFor({100, 10, 1, 18}, {tall}), Origin({100, 900 - 28 - 6 - 648}));
    }

    void panelStaysOnTheScreenOfTheCaret()
    {
        const std::vector<Screen> screens{primary, left};
        QCOMPARE(originFor({-1000, 50, 1, 18}, screens), Origin({-1000, 900 - 68 - 6 - 648}));
        // The right edge of that screen is where the primary one begins.
        QCOMPARE(originFor({-30, 50, 1, 18}, screens), Origin({-552, 178}));
        // Not enough room over that screen's own dock.
        QCOMPARE(originFor({-1000, 200, 1, 18}, screens), Origin({-1000, 900 - 648}));
    }

    void caretOnNoScreenGivesNoOrigin()
    {
        QCOMPARE(originFor({5000, 200, 1, 18}), Origin());
        QCOMPARE(originFor({-30, 200, 1, 18}), Origin());
        QCOMPARE(originFor({100, 950, 1, 18}), Origin());
    }

    void noScreensGiveNoOrigin() { QCOMPARE(originFor({100, 200, 1, 18}, {}), Origin()); }

    void firstOfTwoMirroredScreensIsUsed()
    {
        Screen mirror = primary;
        mirror.visibleFrame = QRectF(0, 400, 1440, 500);
        QCOMPARE(originFor({100, 200, 1, 18}, {primary, mirror}), Origin({100, 28}));
    }

    void nonFiniteRectanglesGiveNoOrigin_data()
    {
        QTest::addColumn<QRectF>("caret");
        const qreal nan = std::nan("");
        QTest::newRow("nan x") << QRectF(nan, 200, 1, 18);
        QTest::newRow("nan y") << QRectF(100, nan, 1, 18);
        QTest::newRow("infinite x") << QRectF(infinity, 200, 1, 18);
        QTest::newRow("infinite y") << QRectF(100, -infinity, 1, 18);
        QTest::newRow("infinite height") << QRectF(100, 200, 1, infinity);
        QTest::newRow("nan size") << QRectF(100, 200, nan, nan);
    }
    void nonFiniteRectanglesGiveNoOrigin()
    {
        QFETCH(QRectF, caret);
        Search search;
        search.lookup.caret = caret;
        search.start();
        QCOMPARE(search.answers, 1);
        QCOMPARE(search.origin, Origin());
    }

    void degenerateRectanglesAreRejected_data()
    {
        QTest::addColumn<QRectF>("caret");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("zero size") << QRectF(100, 200, 0, 0) << false;
        QTest::newRow("one point") << QRectF(100, 200, 1, 1) << false;
        QTest::newRow("negative size") << QRectF(100, 200, -5, -18) << false;
        QTest::newRow("a line high, no width") << QRectF(100, 200, 0, 18) << true;
        QTest::newRow("a line high, one wide") << QRectF(100, 200, 1, 18) << true;
        QTest::newRow("wide without height") << QRectF(100, 200, 1.1, 0) << true;
    }
    void degenerateRectanglesAreRejected()
    {
        QFETCH(QRectF, caret);
        QFETCH(bool, accepted);
        Search search;
        search.lookup.caret = caret;
        search.start();
        QCOMPARE(search.answers, 1);
        QCOMPARE(search.origin.has_value(), accepted);
    }

    void failedLookupGivesNoOrigin()
    {
        Search search;
        search.start();
        QCOMPARE(search.answers, 1);
        QCOMPARE(search.origin, Origin());
    }

    void lateAnswerUsesTheCurrentScreens()
    {
        Search search;
        search.lookup.answersAtOnce = false;
        search.start();
        QCOMPARE(search.answers, 0);
        search.screens.list = {primary, left};
        search.lookup.answerAll(QRectF(-1000, 50, 1, 18));
        QCOMPARE(search.answers, 1);
        QCOMPARE(search.origin, Origin({-1000, 178}));
    }
};

DRIFTBOX_TEST(TestCursorLocator, QCoreApplication)
#include "TestCursorLocator.moc"
