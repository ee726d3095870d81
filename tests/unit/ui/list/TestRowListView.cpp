#include "support/main/TestMain.h"
#include "ui/controls/Tooltip.h"
#include "ui/list/RowListAccessible.h"
#include "ui/list/RowListView.h"

#include <QtCore/QStringListModel>
#include <QtGui/QAccessible>
#include <QtGui/QHelpEvent>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QScrollBar>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

/// Rows of 40 points that record what is done with them. Each has a button at its right that is
/// always visible and one beside it that is not; that of the row "busy" is disabled.
class Rows final : public RowDelegate
{
public:
    enum Button { remove, pin };

    [[nodiscard]] int heightOfRow(int) const override { return 40; }
    [[nodiscard]] QString help() const override { return u"Help"_s; }
    [[nodiscard]] std::vector<RowButton> buttons(const QModelIndex& index,
                                                 QSize size) const override
    {
        const bool isBusy = index.data().toString() == u"busy"_s;
        return {{.rect = QRect(size.width() - 60, 10, 20, 20),
                 .help = u"Remove"_s,
                 .visibility = RowButton::Visibility::revealed,
                 .isEnabled = !isBusy},
                {.rect = QRect(size.width() - 35, 10, 20, 20),
                 .help = u"Pin"_s,
                 .visibility = RowButton::Visibility::always}};
    }
    void paint(QPainter&, const QRect& rect, const QModelIndex& index,
               const RowState& state) const override
    {
        painted.insert(index.row(), {rect, state});
    }
    void pick(const QModelIndex& index) override { log << u"pick "_s + index.data().toString(); }
    void press(const QModelIndex& index, int button) override
    {
        log << (button == pin ? u"pin "_s : u"remove "_s) + index.data().toString();
    }

    struct Painted
    {
        QRect rect;
        RowState state;
    };
    mutable QMap<int, Painted> painted;
    QStringList log;
};

/// A list of 100 rows named by their numbers in a window that has room for five.
struct RowListViewFixture
{
    RowListViewFixture()
    {
        QStringList names;
        for (int i = 0; i < 100; ++i)
            names << QString::number(i);
        model.setStringList(names);
        list.setGeometry(0, 0, 300, 200);
        window.resize(300, 300);
        window.show();
        (void)QTest::qWaitForWindowExposed(&window);
        paint();
    }

    void paint()
    {
        rows.painted.clear();
        list.viewport()->repaint();
    }
    [[nodiscard]] RowState state(int row)
    {
        list.viewport()->repaint();
        return rows.painted.value(row).state;
    }
    [[nodiscard]] QPoint middle(int row) const { return list.rowRect(row).center(); }
    [[nodiscard]] QPoint button(int row, int button) const
    {
        return list.buttons(row)[size_t(button)].rect.center() + list.rowRect(row).topLeft();
    }
    void moveTo(QPoint place) { QTest::mouseMove(list.viewport(), place); }
    void press(QPoint place) { QTest::mousePress(list.viewport(), Qt::LeftButton, {}, place); }
    void release(QPoint place) { QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, place); }
    void click(QPoint place)
    {
        moveTo(place);
        press(place);
        release(place);
    }
    void rest(QPoint place)
    {
        moveTo(place);
        QHelpEvent event(QEvent::ToolTip, place, list.viewport()->mapToGlobal(place));
        QApplication::sendEvent(list.viewport(), &event);
    }
    void scroll(int offset) { list.verticalScrollBar()->setValue(offset); }
    void insert(int row, const QString& name)
    {
        model.insertRow(row);
        model.setData(model.index(row), name);
    }

    QStringListModel model;
    Rows rows;
    QWidget window;
    RowListView& list = *new RowListView(model, rows, &window);
};

} // namespace

class TestRowListView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCursor::setPos(1000, 1000); }

    void onlyVisibleRowsArePainted()
    {
        RowListViewFixture f;
        QCOMPARE(f.rows.painted.keys(), QList({0, 1, 2, 3, 4}));
        QCOMPARE(f.rows.painted[1].rect, QRect(0, 40, 300, 40));
        f.scroll(50);
        f.paint();
        QCOMPARE(f.rows.painted.keys(), QList({1, 2, 3, 4, 5, 6}));
        QCOMPARE(f.rows.painted[1].rect.top(), -10);
    }

    void emptyListPaintsNothing()
    {
        RowListViewFixture f;
        f.model.setStringList({});
        f.paint();
        QVERIFY(f.rows.painted.isEmpty());
        f.click({10, 10});
        QVERIFY(f.rows.log.isEmpty());
        QCOMPARE(f.list.rowsPerPage(), 1);
        f.list.setSelectedRow(-1);
        f.list.scrollToTop();
    }

    void clickingARowPicksIt()
    {
        RowListViewFixture f;
        f.click(f.middle(2));
        QCOMPARE(f.rows.log, QStringList(u"pick 2"_s));
        f.scroll(45);
        f.click({100, 0});
        QCOMPARE(f.rows.log.last(), u"pick 1"_s);
    }

    void clickingAButtonDoesNotPickTheRow()
    {
        RowListViewFixture f;
        f.click(f.button(1, Rows::pin));
        f.click(f.button(3, Rows::remove));
        QCOMPARE(f.rows.log, QStringList({u"pin 1"_s, u"remove 3"_s}));
    }

    void disabledButtonConsumesTheClick()
    {
        RowListViewFixture f;
        f.model.setStringList({u"busy"_s, u"idle"_s});
        f.click(f.button(0, Rows::remove));
        QVERIFY(f.rows.log.isEmpty());
        f.click(f.button(1, Rows::remove));
        QCOMPARE(f.rows.log, QStringList(u"remove idle"_s));
    }

    void hiddenButtonsCannotBeClicked()
    {
        RowListViewFixture f;
        const QPoint hidden = f.button(1, Rows::remove);
        f.press(hidden); // a finger: the pointer was not there before
        f.release(hidden);
        QVERIFY(f.rows.log.isEmpty());
        const QPoint visible = f.button(3, Rows::pin);
        f.press(visible);
        f.release(visible);
        QCOMPARE(f.rows.log, QStringList(u"pin 3"_s));
        f.list.setSelectedRow(4);
        const QPoint selected = f.button(4, Rows::remove);
        f.press(selected);
        f.release(selected);
        QCOMPARE(f.rows.log.last(), u"remove 4"_s);
    }

    void draggingOutCancelsTheClick()
    {
        RowListViewFixture f;
        f.moveTo(f.middle(1));
        f.press(f.middle(1));
        QVERIFY(f.state(1).isPressed);
        f.moveTo(f.middle(2));
        QVERIFY(!f.state(1).isPressed);
        QVERIFY(!f.state(2).isPressed);
        f.release(f.middle(2));

        f.moveTo(f.button(1, Rows::pin));
        f.press(f.button(1, Rows::pin));
        QCOMPARE(f.state(1).pressedButton, int(Rows::pin));
        f.moveTo(f.middle(1));
        QCOMPARE(f.state(1).pressedButton, -1);
        f.release(f.middle(1));

        f.moveTo(f.middle(1));
        f.press(f.middle(1));
        f.release({100, 400});
        QVERIFY(f.rows.log.isEmpty());
    }

    void releaseAfterReturningToTheRowPicksIt()
    {
        RowListViewFixture f;
        f.moveTo(f.middle(1));
        f.press(f.middle(1));
        f.moveTo(f.middle(2));
        f.moveTo(f.middle(1));
        f.release(f.middle(1));
        QCOMPARE(f.rows.log, QStringList(u"pick 1"_s));
    }

    void rowThatMovesAwayDuringAPressIsNotPicked()
    {
        RowListViewFixture f;
        f.moveTo(f.middle(1));
        f.press(f.middle(1));
        f.insert(0, u"new"_s);
        f.release(f.middle(1));
        QVERIFY(f.rows.log.isEmpty());

        f.press(f.middle(1));
        f.model.removeRow(1);
        f.release(f.middle(1));
        QVERIFY(f.rows.log.isEmpty());
    }

    void doubleClickCountsOnce()
    {
        RowListViewFixture f;
        f.click(f.middle(1));
        QTest::mouseDClick(f.list.viewport(), Qt::LeftButton, {}, f.middle(1));
        f.release(f.middle(1));
        QCOMPARE(f.rows.log, QStringList(u"pick 1"_s));
    }

    void otherMouseButtonsDoNothing()
    {
        RowListViewFixture f;
        f.moveTo(f.middle(1));
        QTest::mouseClick(f.list.viewport(), Qt::RightButton, {}, f.middle(1));
        QTest::mouseClick(f.list.viewport(), Qt::MiddleButton, {}, f.middle(1));
        QVERIFY(f.rows.log.isEmpty());
    }

    void hoveredRowIsRevealed()
    {
        RowListViewFixture f;
        f.moveTo(f.middle(1));
        QVERIFY(f.state(1).hasPointer);
        QVERIFY(f.list.isRevealed(1));
        QCOMPARE(f.state(1).buttonUnderPointer, -1);
        f.moveTo(f.button(2, Rows::remove));
        QVERIFY(!f.state(1).hasPointer);
        QVERIFY(f.state(2).hasPointer);
        QCOMPARE(f.state(2).buttonUnderPointer, int(Rows::remove));
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(f.list.viewport(), &leave);
        QVERIFY(!f.state(2).hasPointer);
    }

    void hoverFollowsRowsThatMoveUnderThePointer()
    {
        RowListViewFixture f;
        f.moveTo(f.middle(1));
        f.scroll(40);
        QVERIFY(f.state(2).hasPointer);
        QVERIFY(!f.state(1).hasPointer);
        f.model.removeRows(0, 1);
        QVERIFY(f.state(1).hasPointer); // visible rows stay in place
        f.model.setStringList({u"only"_s});
        QVERIFY(!f.state(0).hasPointer);
        f.model.setStringList({u"one"_s, u"two"_s});
        QVERIFY(f.state(1).hasPointer);
    }

    void selectedRowIsScrolledIntoView()
    {
        RowListViewFixture f;
        f.list.setSelectedRow(3);
        QCOMPARE(f.list.verticalScrollBar()->value(), 0);
        QVERIFY(f.state(3).isSelected && f.state(3).isRevealed());
        f.list.setSelectedRow(5);
        QCOMPARE(f.list.verticalScrollBar()->value(), 40);
        QVERIFY(!f.state(3).isSelected);
        f.list.setSelectedRow(99);
        QCOMPARE(f.list.verticalScrollBar()->value(), 100 * 40 - 200);
        f.list.setSelectedRow(50);
        QCOMPARE(f.list.verticalScrollBar()->value(), 50 * 40);
        f.list.setSelectedRow(-1);
        f.list.setSelectedRow(1000);
        QCOMPARE(f.list.verticalScrollBar()->value(), 50 * 40);
    }

    void pageIsTheNumberOfRowsThatFit()
    {
        RowListViewFixture f;
        QCOMPARE(f.list.rowsPerPage(), 4);
        f.scroll(20);
        QCOMPARE(f.list.rowsPerPage(), 4);
    }

    void visibleRowsStayWhenRowsChangeAbove()
    {
        RowListViewFixture f;
        f.scroll(90);
        f.insert(0, u"new"_s);
        QCOMPARE(f.list.verticalScrollBar()->value(), 130);
        f.model.removeRows(0, 2);
        QCOMPARE(f.list.verticalScrollBar()->value(), 50);
        f.insert(50, u"far below"_s);
        QCOMPARE(f.list.verticalScrollBar()->value(), 50);
    }

    void newRowsAreVisibleAtTheTop()
    {
        RowListViewFixture f;
        f.insert(0, u"new"_s);
        QCOMPARE(f.list.verticalScrollBar()->value(), 0);
    }

    void resetScrollsToTheTop()
    {
        RowListViewFixture f;
        f.scroll(1000);
        QStringList names = f.model.stringList();
        names.removeLast();
        f.model.setStringList(names);
        QCOMPARE(f.list.verticalScrollBar()->value(), 0);
        QCOMPARE(f.list.verticalScrollBar()->maximum(), 99 * 40 - 200);
    }

    void removalKeepsTheViewAtTheEnd()
    {
        RowListViewFixture f;
        f.scroll(100 * 40);
        f.model.removeRows(90, 10);
        QCOMPARE(f.list.verticalScrollBar()->value(), 90 * 40 - 200);
    }

    void touchpadScrollsPixelByPixel()
    {
        RowListViewFixture f;
        wheel(f, {0, -30}, {0, -30});
        QCOMPARE(f.list.verticalScrollBar()->value(), 30);
        wheel(f, {0, 1000}, {0, 1000});
        QCOMPARE(f.list.verticalScrollBar()->value(), 0);
    }

    void wheelScrollsSmoothly()
    {
        RowListViewFixture f;
        wheel(f, {}, {0, -120});
        wheel(f, {}, {0, -120});
        QTRY_COMPARE(f.list.verticalScrollBar()->value(), 144);
        wheel(f, {}, {0, 1200});
        QTRY_COMPARE(f.list.verticalScrollBar()->value(), 0);
    }

    void selectingStopsSmoothScrolling()
    {
        RowListViewFixture f;
        wheel(f, {}, {0, -1200});
        f.list.setSelectedRow(0);
        QCOMPARE(f.list.verticalScrollBar()->value(), 0);
        QTest::qWait(50); // smooth scrolling would have started by now
        QCOMPARE(f.list.verticalScrollBar()->value(), 0);
    }

    void helpIsShownForTheRowAndForEachButton()
    {
        RowListViewFixture f;
        f.rest(f.middle(1));
        QCOMPARE(Tooltip::shownText(f.window), u"Help"_s);
        f.moveTo(f.button(1, Rows::pin));
        QCOMPARE(Tooltip::shownText(f.window), QString());
        f.rest(f.button(1, Rows::pin));
        QCOMPARE(Tooltip::shownText(f.window), u"Pin"_s);
        f.scroll(40);
        QCOMPARE(Tooltip::shownText(f.window), QString());
        f.model.setStringList({});
        f.rest({10, 10});
        QCOMPARE(Tooltip::shownText(f.window), QString());
    }

    void hidingResetsTheHoverState()
    {
        RowListViewFixture f;
        f.moveTo(f.middle(1));
        f.press(f.middle(1));
        f.list.hide();
        QVERIFY(!f.list.isRevealed(1));
        f.list.show();
        f.release(f.middle(1));
        QVERIFY(f.rows.log.isEmpty());
    }

    void itsElementIsAList()
    {
        RowListViewFixture f;
        const RowListAccessible* element = RowListAccessible::of(f.list);
        QVERIFY(element);
        QCOMPARE(element->role(), QAccessible::List);
        QCOMPARE(element->childCount(), 100);
    }

    void anElementFromAnotherFactoryIsNotTakenForOurs()
    {
        RowListViewFixture f;
        const auto otherFactory = [](const QString&, QObject* object) -> QAccessibleInterface* {
            auto* view = qobject_cast<RowListView*>(object);
            return view ? new QAccessibleWidget(view) : nullptr;
        };
        QAccessible::installFactory(otherFactory);
        RowListView list(f.model, f.rows, &f.window);
        const RowListAccessible* element = RowListAccessible::of(list);
        QAccessible::removeFactory(otherFactory);
        QVERIFY(!element);
    }

    void takesNoFocus()
    {
        RowListViewFixture f;
        f.click(f.middle(0));
        QVERIFY(!f.list.hasFocus() && !f.list.viewport()->hasFocus());
    }

private:
    static void wheel(RowListViewFixture& f, QPoint pixels, QPoint angle)
    {
        const QPointF place = f.middle(0);
        QWheelEvent event(place, f.list.viewport()->mapToGlobal(place), pixels, angle, {}, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(f.list.viewport(), &event);
    }
};

DRIFTBOX_TEST(TestRowListView, QApplication)
#include "TestRowListView.moc"
