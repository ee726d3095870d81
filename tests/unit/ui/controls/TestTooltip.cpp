#include "support/main/TestMain.h"
#include "ui/controls/Tooltip.h"

#include <QtGui/QHelpEvent>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

/// A window of 200 x 100 points, its contents 10 points inside, with one widget that has help.
struct Window
{
    explicit Window(const QRect& place = {80, 30, 40, 20},
                    Tooltip::Side side = Tooltip::Side::below)
    {
        window.resize(200, 100);
        window.setContentsMargins(10, 10, 10, 10);
        widget.setGeometry(place);
        setTooltip(widget, u"Delete"_s, side);
        window.show();
    }

    void rest()
    {
        QHelpEvent event(QEvent::ToolTip, {5, 5}, widget.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&widget, &event);
    }
    [[nodiscard]] QString shown() const { return Tooltip::shownText(window); }
    [[nodiscard]] QRect tooltipFrame() const { return window.findChild<Tooltip*>()->geometry(); }

    QWidget window;
    QWidget& widget = *new QWidget(&window);
};

} // namespace

class TestTooltip : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void accessibleNameStaysAsItIs()
    {
        Window window;
        window.widget.setAccessibleName(u"Bin"_s);
        setTooltip(window.widget, u"Delete the note"_s);
        QCOMPARE(window.widget.accessibleName(), u"Bin"_s);
        QCOMPARE(window.shown(), QString());
    }

    void hoveringShowsTheHelpInsideTheWindow()
    {
        Window window;
        window.rest();
        QCOMPARE(window.shown(), u"Delete"_s);
        QVERIFY(window.window.contentsRect().contains(window.tooltipFrame()));
        QVERIFY(window.tooltipFrame().top() > window.widget.geometry().bottom());
        QCOMPARE(QApplication::topLevelWidgets().count(&window.window), 1);
        QVERIFY(!QApplication::activePopupWidget());
    }

    void tooltipFlipsToTheOtherSideWithoutRoom_data()
    {
        QTest::addColumn<QRect>("place");
        QTest::addColumn<Tooltip::Side>("side");
        QTest::newRow("at the bottom") << QRect(80, 70, 40, 20) << Tooltip::Side::below;
        QTest::newRow("at the right") << QRect(150, 40, 40, 20) << Tooltip::Side::right;
        QTest::newRow("in the corner") << QRect(180, 80, 10, 10) << Tooltip::Side::below;
        QTest::newRow("all over") << QRect(0, 0, 200, 100) << Tooltip::Side::right;
    }
    void tooltipFlipsToTheOtherSideWithoutRoom()
    {
        QFETCH(QRect, place);
        QFETCH(Tooltip::Side, side);
        Window window(place, side);
        window.rest();
        QVERIFY(window.window.contentsRect().contains(window.tooltipFrame()));
        if (place != QRect(0, 0, 200, 100))
            QVERIFY(!window.tooltipFrame().intersects(place));
    }

    void longTextWraps()
    {
        Window window;
        setTooltip(window.widget, u"Unsave — note becomes a draft (deleted on close)"_s);
        window.rest();
        QVERIFY(window.window.contentsRect().contains(window.tooltipFrame()));
        QVERIFY(window.tooltipFrame().height() > 30);
    }

    void newHelpReplacesTheOld()
    {
        Window window;
        setTooltip(window.widget, u"Pin"_s);
        window.rest();
        QCOMPARE(window.shown(), u"Pin"_s);
        QCOMPARE(window.window.findChildren<Tooltip*>().size(), 1);
    }

    void secondCallMayChangeTheSide()
    {
        Window window({20, 30, 20, 20}, Tooltip::Side::below);
        setTooltip(window.widget, u"Pin"_s, Tooltip::Side::right);
        window.rest();
        QVERIFY(window.tooltipFrame().left() > window.widget.geometry().right());
    }

    void toolkitTooltipIsReplaced()
    {
        Window window;
        QWidget other(&window.window);
        other.setGeometry(20, 30, 20, 20);
        other.show();
        other.setToolTip(u"Pin"_s);
        setTooltip(other, u"Unpin"_s);
        QHelpEvent event(QEvent::ToolTip, {5, 5}, other.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&other, &event);
        QCOMPARE(window.shown(), u"Unpin"_s);
    }

    void nextInputDismissesTheTooltip_data()
    {
        QTest::addColumn<int>("event");
        QTest::newRow("key") << int(QEvent::KeyPress);
        QTest::newRow("click") << int(QEvent::MouseButtonPress);
        QTest::newRow("wheel") << int(QEvent::Wheel);
        QTest::newRow("leave") << int(QEvent::Leave);
    }
    void nextInputDismissesTheTooltip()
    {
        QFETCH(int, event);
        Window window;
        window.rest();
        switch (event) {
        case QEvent::KeyPress:
            QTest::keyClick(&window.window, Qt::Key_A);
            break;
        case QEvent::MouseButtonPress:
            QTest::mouseClick(&window.window, Qt::LeftButton);
            break;
        case QEvent::Wheel: {
            QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
            QApplication::sendEvent(&window.window, &wheel);
            break;
        }
        default: {
            QEvent leave(QEvent::Leave);
            QApplication::sendEvent(&window.widget, &leave);
        }
        }
        QCOMPARE(window.shown(), QString());
        window.rest();
        QCOMPARE(window.shown(), u"Delete"_s);
    }

    void hidingTheWidgetDismissesTheTooltip()
    {
        Window window;
        window.rest();
        window.widget.hide();
        QCOMPARE(window.shown(), QString());
    }

    void emptyTextDismissesTheTooltip()
    {
        Window window;
        window.rest();
        Tooltip::present(window.window, QRect(0, 0, 1, 1), QString());
        QCOMPARE(window.shown(), QString());
    }

    void dismissingNothingIsHarmless()
    {
        const Window window;
        Tooltip::dismiss(window.window);
        QCOMPARE(window.shown(), QString());
    }
};

DRIFTBOX_TEST(TestTooltip, QApplication)
#include "TestTooltip.moc"
