#include "support/main/TestMain.h"
#include "ui/controls/OverlayScrollBar.h"

#include <QtTest/QTest>
#include <QtWidgets/QScrollBar>

using namespace driftbox;

namespace {

/// A bar of 100 points for 400 points of content, of which 100 show: the thumb has its
/// minimum length.
struct OverlayScrollBarFixture
{
    OverlayScrollBarFixture()
    {
        scrollBar.setPageStep(100);
        scrollBar.setRange(0, 300);
        overlay.setGeometry(0, 0, OverlayScrollBar::thickness, 100);
        window.resize(100, 100);
        window.show();
        (void)QTest::qWaitForWindowExposed(&window);
    }

    void press(int y) { QTest::mousePress(&overlay, Qt::LeftButton, {}, {5, y}); }
    void moveTo(int y) { QTest::mouseMove(&overlay, {5, y}); }
    void release(int y) { QTest::mouseRelease(&overlay, Qt::LeftButton, {}, {5, y}); }

    QWidget window;
    QScrollBar scrollBar;
    OverlayScrollBar& overlay = *new OverlayScrollBar(scrollBar, &window);
};

} // namespace

class TestOverlayScrollBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isVisibleOnlyWhileThereIsSomethingToScroll()
    {
        OverlayScrollBarFixture f;
        QVERIFY(f.overlay.isVisible());
        f.scrollBar.setRange(0, 0);
        QVERIFY(!f.overlay.isVisible());
        f.scrollBar.setRange(0, 1);
        QVERIFY(f.overlay.isVisible());
    }

    void thumbCanBeDragged()
    {
        OverlayScrollBarFixture f;
        f.press(10);
        QCOMPARE(f.scrollBar.value(), 0);
        f.moveTo(46);
        QCOMPARE(f.scrollBar.value(), 159); // 36 of the 68 points that the thumb can move
        f.moveTo(500);
        QCOMPARE(f.scrollBar.value(), 300);
        f.moveTo(-500);
        QCOMPARE(f.scrollBar.value(), 0);
        f.release(-500);
        f.moveTo(50);
        QCOMPARE(f.scrollBar.value(), 0);
    }

    void clickBesideTheThumbMovesItThere()
    {
        OverlayScrollBarFixture f;
        f.press(98);
        f.release(98);
        QCOMPARE(f.scrollBar.value(), 300);
        f.press(2);
        QCOMPARE(f.scrollBar.value(), 0);
    }

    void otherButtonsDoNothing()
    {
        OverlayScrollBarFixture f;
        QTest::mouseClick(&f.overlay, Qt::RightButton, {}, {5, 98});
        QCOMPARE(f.scrollBar.value(), 0);
    }

    void followsItsScrollBar()
    {
        OverlayScrollBarFixture f;
        const QImage top = f.overlay.grab().toImage();
        f.scrollBar.setValue(300);
        const QImage bottom = f.overlay.grab().toImage();
        QVERIFY(top != bottom);
        QCOMPARE(top.mirrored(), bottom);
    }

    void thumbHasAMinimumLength()
    {
        OverlayScrollBarFixture f;
        f.scrollBar.setRange(0, 10'000'000);
        f.press(20);
        f.moveTo(500);
        QCOMPARE(f.scrollBar.value(), 10'000'000);
    }
};

DRIFTBOX_TEST(TestOverlayScrollBar, QApplication)
#include "TestOverlayScrollBar.moc"
