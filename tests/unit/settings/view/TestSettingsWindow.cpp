#include "support/main/TestMain.h"
#include "unit/settings/SettingsDesk.h"

#include "fakes/FakeFloatingSurface.h"
#include "fakes/FakeScreens.h"
#include "settings/view/AboutSettingsView.h"
#include "settings/view/ClipboardSettingsView.h"
#include "settings/view/FormLabel.h"
#include "settings/view/SettingsHeader.h"
#include "settings/view/SettingsWindowController.h"

#include <algorithm>
#include <iterator>

#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QListView>
#include <QtWidgets/QScrollBar>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

constexpr int shadow = 28;

struct Fixture
{
    Fixture() { window().show(); }

    [[nodiscard]] SettingsWindow& window() { return controller.window(); }
    [[nodiscard]] FakeFloatingSurface& surface() { return *surfaces.surfaces.front(); }
    [[nodiscard]] QListView& list() { return *window().findChild<QListView*>(); }
    [[nodiscard]] SearchField& search() { return *window().findChild<SearchField*>(); }
    [[nodiscard]] QString title()
    {
        return window().findChild<SettingsHeader*>()->findChild<FormLabel*>()->text();
    }
    [[nodiscard]] QAbstractButton& button(const QString& name)
    {
        for (auto* button : window().findChildren<QAbstractButton*>()) {
            if (button->accessibleName() == name)
                return *button;
        }
        qFatal("There is no such button");
    }
    void choose(int row)
    {
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                          list().visualRect(list().model()->index(row, 0)).center());
    }

    SettingsDesk desk;
    FakeFloatingSurfaceFactory surfaces;
    FakeScreens screens;
    SettingsWindowController controller{
        std::make_unique<SettingsWindow>(
            surfaces, desk.services,
            TextExchange{[] { return u"pasted"_s; }, [](const QString&) {}}),
        screens};
};

/// The names of the element and all in it, in the order in which they are read.
QStringList readFrom(const QAccessibleInterface& element)
{
    QStringList names{element.text(QAccessible::Name)};
    for (int i = 0; i < element.childCount(); ++i)
        names += readFrom(*element.child(i));
    return names;
}

} // namespace

class TestSettingsWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windowIsOrdinaryAndHasItsSize()
    {
        Fixture f;
        QCOMPARE(f.surface().role, FloatingSurface::Role::ordinary);
        QCOMPARE(f.window().rootView().size(), QSize(760, 520));
        QCOMPARE(f.window().windowTitle(), u"Drift Box Settings"_s);
        QCOMPARE(f.window().accessibleName(), u"Drift Box Settings"_s);
        QCOMPARE(QAccessible::queryAccessibleInterface(&f.window())->role(), QAccessible::Window);
        QCOMPARE(f.surface().shape.boundingRect().adjusted(0, 0, -1, -1),
                 f.window().rect().adjusted(shadow, shadow, -shadow - 1, -shadow - 1));
    }

    void windowIsCenteredTheFirstTime()
    {
        Fixture f;
        f.controller.showWindow();
        QCOMPARE(f.surface().frame().center(), QPointF(720, 875 / 2.0));
        QCOMPARE(f.surface().presentations, std::vector{FloatingSurface::Keyboard::take});
    }

    void windowReopensAsItWasLeft()
    {
        Fixture f;
        f.controller.showWindow();
        f.choose(2);
        f.search().setText(u"clip"_s);
        const QRectF left(10, 20, 900, 600);
        f.surface().moveByUser(left);
        f.window().close();
        QCOMPARE(f.surface().orderOuts, 1);

        f.controller.showWindow();
        QCOMPARE(f.surface().frame(), left);
        QCOMPARE(f.title(), u"Notes"_s);
        QCOMPARE(f.search().text(), u"clip"_s);
        QCOMPARE(f.surfaces.surfaces.size(), size_t(1));
    }

    void windowReturnsToTheRemainingScreens_data()
    {
        QTest::addColumn<QRectF>("left");
        QTest::addColumn<QRectF>("found");
        QTest::newRow("still on it") << QRectF(10, 20, 500, 450) << QRectF(10, 20, 500, 450);
        QTest::newRow("over the edge") << QRectF(300, 20, 600, 450) << QRectF(200, 20, 600, 450);
        QTest::newRow("on the screen that went")
            << QRectF(1000, 300, 600, 450) << QRectF(200, 150, 600, 450);
        QTest::newRow("too large") << QRectF(0, 20, 900, 700) << QRectF(0, 0, 800, 600);
    }

    void windowReturnsToTheRemainingScreens()
    {
        QFETCH(QRectF, left);
        QFETCH(QRectF, found);
        Fixture f;
        f.controller.showWindow();
        f.surface().moveByUser(left);
        f.window().close();
        f.screens.list = {{QRectF(0, 0, 800, 600), QRectF(0, 0, 800, 600), QRect(), 1.0}};
        f.controller.showWindow();
        QCOMPARE(f.surface().frame(), found);
    }

    void windowHalfOffTheScreenStaysInPlace()
    {
        Fixture f;
        f.controller.showWindow();
        const QRectF left(1200, 20, 600, 450);
        f.surface().moveByUser(left);
        f.window().close();
        f.controller.showWindow();
        QCOMPARE(f.surface().frame(), left);
    }

    void showingAgainRaisesTheWindow()
    {
        Fixture f;
        f.controller.showWindow();
        f.controller.showWindow();
        QCOMPARE(f.surface().presentations.size(), size_t(2));
        QCOMPARE(f.surfaces.surfaces.size(), size_t(1));
    }

    void windowFillsAScreenThatIsTooSmall()
    {
        Fixture f;
        f.screens.list = {{QRectF(0, 0, 800, 480), QRectF(0, 0, 800, 480), QRect(), 1.0}};
        f.screens.mouse = {5000, 5000};
        f.controller.showWindow();
        QCOMPARE(f.surface().frame(), QRectF(0, 0, 800, 480));
    }

    void elementsAreReadFromTheTop()
    {
        Fixture f;
        const QStringList read = readFrom(*QAccessible::queryAccessibleInterface(&f.window()));
        const QStringList expected = {u"Search"_s,
                                      u"General"_s, // in the sidebar
                                      u"Hotkey, startup, and accessibility."_s,
                                      u"Hotkey"_s,
                                      u"Summon with"_s,
                                      u"Startup"_s,
                                      u"Launch Drift Box at login"_s,
                                      u"Accessibility"_s,
                                      u"Re-check"_s,
                                      u"Close"_s};
        QStringList found;
        std::ranges::copy_if(read, std::back_inserter(found), [&](const QString& name) {
            return expected.contains(name) && !found.contains(name);
        });
        QCOMPARE(found, expected);
    }

    void sidebarOpensPages()
    {
        Fixture f;
        QCOMPARE(f.title(), u"General"_s);
        f.choose(1);
        QCOMPARE(f.title(), u"Clipboard"_s);
        QVERIFY(f.window().findChild<ClipboardSettingsView*>()->isVisible());
        QTest::keyClick(&f.list(), Qt::Key_Down);
        QCOMPARE(f.title(), u"Notes"_s);
        QTest::keyClick(&f.list(), Qt::Key_End);
        QCOMPARE(f.title(), u"About"_s);
    }

    void aboutPageFitsTheInitialWindow()
    {
        Fixture f;
        f.choose(3);
        const auto* page = f.window().findChild<AboutSettingsView*>();
        QVERIFY(QTest::qWaitForWindowExposed(&f.window()));
        QVERIFY(page->isVisible());
        QCOMPARE(page->verticalScrollBar()->maximum(), 0);
    }

    void queryFiltersTheSidebarAndKeepsThePage()
    {
        Fixture f;
        QTest::keyClicks(&f.search(), u"clip"_s);
        QCOMPARE(f.list().model()->rowCount(), 1);
        QCOMPARE(f.title(), u"General"_s);
        QVERIFY(f.list().selectionModel()->selectedIndexes().isEmpty());
        f.list().setFocus();
        QCOMPARE(f.title(), u"General"_s);

        f.button(u"Clear search"_s).click();
        QCOMPARE(f.list().model()->rowCount(), 4);
        QCOMPARE(f.list().selectionModel()->selectedIndexes().size(), 1);
        QCOMPARE(f.list().currentIndex().row(), 0);
    }

    void detailIsEmptyWithoutASelection()
    {
        Fixture f;
        f.window().rootView().navigation().setSelection(std::nullopt);
        QVERIFY(!f.window().findChild<SettingsHeader*>()->isVisible());
        QVERIFY(f.list().selectionModel()->selectedIndexes().isEmpty());
        f.choose(3);
        QVERIFY(f.window().findChild<SettingsHeader*>()->isVisible());
        QCOMPARE(f.title(), u"About"_s);
        QTest::mouseClick(f.list().viewport(), Qt::LeftButton, Qt::ControlModifier,
                          f.list().visualRect(f.list().model()->index(3, 0)).center());
        QCOMPARE(f.window().rootView().navigation().selection(), std::nullopt);
    }

    void topMovesAndEdgesResizeTheWindow()
    {
        Fixture f;
        QTest::mouseClick(&f.window(), Qt::LeftButton, {}, {shadow + 400, shadow + 40});
        QCOMPARE(f.surface().moves, 0); // a click is no drag
        drag(f, {shadow + 400, shadow + 40});
        QCOMPARE(f.surface().moves, 1);
        drag(f, {shadow + 400, shadow + 500});
        QCOMPARE(f.surface().moves, 1);
        drag(f, {shadow + 1, shadow + 300});
        drag(f, {shadow + 758, shadow + 518});
        QCOMPARE(f.surface().resizes,
                 std::vector({Qt::Edges(Qt::LeftEdge), Qt::Edges(Qt::RightEdge | Qt::BottomEdge)}));
    }

    void closeButtonAndShortcutCloseTheWindow()
    {
        Fixture f;
        f.controller.showWindow();
        f.button(u"Close"_s).click();
        QCOMPARE(f.surface().orderOuts, 1);
        f.controller.showWindow();
        f.window().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&f.window()));
        QTest::keyClick(&f.list(), Qt::Key_W, Qt::ControlModifier);
        QCOMPARE(f.surface().orderOuts, 2);
    }

    void windowIsOpaqueOnlyWithoutCompositing()
    {
        Fixture f;
        const QImage blended = f.window().grab().toImage();
        f.surface().setComposited(false);
        const QImage plain = f.window().grab().toImage();
        QCOMPARE(qAlpha(blended.pixel(2, 2)), 0);
        QCOMPARE(qAlpha(plain.pixel(2, 2)), 255);
    }

private:
    static void drag(Fixture& f, const QPoint& position)
    {
        QTest::mousePress(&f.window(), Qt::LeftButton, {}, position);
        for (const int distance : {1, 2, 5, 9, 20}) {
            const QPointF place = position + QPoint(distance, 0);
            QMouseEvent move(QEvent::MouseMove, place, f.window().mapToGlobal(place), Qt::NoButton,
                             Qt::LeftButton, {});
            QCoreApplication::sendEvent(&f.window(), &move);
        }
        QTest::mouseRelease(&f.window(), Qt::LeftButton, {}, position + QPoint(20, 0));
    }
};

DRIFTBOX_TEST(TestSettingsWindow, QApplication)
#include "TestSettingsWindow.moc"
