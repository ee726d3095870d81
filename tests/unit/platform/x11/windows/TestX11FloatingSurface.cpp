#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/windows/X11FloatingSurfaceFactory.h"
#include "support/VirtualDesktop.h"
#include "support/X11Client.h"
#include "support/X11User.h"
#include "support/main/TestMain.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QRasterWindow>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <X11/keysym.h>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

constexpr QRect screenFrame(0, 0, 1440, 900);
const QColor paper(30, 120, 200);

/// A window of one color that remembers the keys that reach it.
class Card final : public QRasterWindow
{
public:
    Card()
    {
        resize(120, 80);
        create();
    }
    QList<int> keys;
    int presses = 0;
    QSize laidOut; ///< the size that the content was told last

protected:
    void resizeEvent(QResizeEvent* event) override { laidOut = event->size(); }
    void paintEvent(QPaintEvent*) override
    {
        QPainter(this).fillRect(QRect(QPoint(), size()), paper);
    }
    void keyPressEvent(QKeyEvent* event) override { keys << event->key(); }
    void mousePressEvent(QMouseEvent*) override { ++presses; }
};

/// The frame in screen space of a rectangle of the screen.
QRectF lowerLeft(const QRect& pixels)
{
    return {qreal(pixels.x()), qreal(screenFrame.height() - pixels.y() - pixels.height()),
            qreal(pixels.width()), qreal(pixels.height())};
}

} // namespace

/// Run once for each window manager.
class TestX11FloatingSurface : public QObject
{
    Q_OBJECT

public:
    explicit TestX11FloatingSurface(VirtualDesktop& virtualDesktop)
        : desktop(virtualDesktop)
    {
    }

private Q_SLOTS:
    void init()
    {
        connection = X11Connection::open();
        QVERIFY(connection);
        surfaces = std::make_unique<X11FloatingSurfaceFactory>(*connection);
        card = std::make_unique<Card>();
        surface = surfaces->adopt(*card, FloatingSurface::Role::panel);
        user.movePointer({1430, 890});
    }

    void cleanup()
    {
        user.releaseButton();
        surface.reset();
        card.reset();
        surfaces.reset();
        connection.reset();
    }

    void frameIsExact_data()
    {
        QTest::addColumn<QRect>("pixels");
        QTest::newRow("middle") << QRect(444, 126, 552, 648);
        QTest::newRow("upper left corner") << QRect(0, 0, 240, 200);
        QTest::newRow("lower right corner") << QRect(1200, 700, 240, 200);
        QTest::newRow("over the edge") << QRect(-30, 640, 300, 300);
        QTest::newRow("odd") << QRect(333, 77, 161, 121);
    }

    void frameIsExact()
    {
        QFETCH(QRect, pixels);
        const QSignalSpy moved(surface.get(), &FloatingSurface::frameChangedByUser);
        surface->setFrame(lowerLeft(pixels));
        surface->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(surface->isKey());
        if (isAtTheEdge(pixels) && windowManager == u"kwin_x11") {
            // It insists on the whole of a window being seen.
            QTRY_COMPARE(windowFrame(), QRect(QPoint(0, 600), pixels.size()));
            return;
        }
        QTRY_COMPARE(windowFrame(), pixels);
        const QRect seen = pixels & screenFrame;
        QTRY_COMPARE(user.colorAt(seen.topLeft()), paper);
        QTRY_COMPARE(user.colorAt(seen.bottomRight()), paper);
        QVERIFY(user.colorAt(seen.topLeft() - QPoint(1, 1)) != paper);
        QVERIFY(user.colorAt(seen.bottomRight() + QPoint(1, 1)) != paper);

        QTest::qWait(150); // longer than a late correction would take
        QCOMPARE(windowFrame(), pixels);
        QCOMPARE(surface->frame(), lowerLeft(pixels));
        QCOMPARE(moved.count(), 0);
    }

    void contentIsResizedBeforeItIsShown()
    {
        surface->setFrame(lowerLeft({300, 200, 250, 130}));
        QCOMPARE(card->laidOut, QSize(250, 130));
        surface->setFrame(lowerLeft({300, 200, 180, 140}));
        QCOMPARE(card->laidOut, QSize(180, 140));
    }

    void movesWhileShownAndReappearsElsewhere()
    {
        surface->setFrame(lowerLeft({100, 100, 200, 150}));
        surface->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(surface->isKey());
        QTRY_COMPARE(windowFrame(), QRect(100, 100, 200, 150));
        surface->setFrame(lowerLeft({500, 300, 260, 100}));
        QTRY_COMPARE(windowFrame(), QRect(500, 300, 260, 100));
        surface->orderOut();
        QVERIFY(!surface->isVisible());
        surface->setFrame(lowerLeft({700, 50, 120, 80}));
        surface->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(surface->isKey());
        QTRY_COMPARE(windowFrame(), QRect(700, 50, 120, 80));
        QTRY_VERIFY(isSeenAt({701, 51}));
    }

    void takesTheKeyboardFromTheActiveApplication()
    {
        X11Client client;
        QTRY_VERIFY(client.hasFocus());
        QSignalSpy became(surface.get(), &FloatingSurface::becameKey);
        QSignalSpy resigned(surface.get(), &FloatingSurface::resignedKey);
        for (int round = 1; round <= 4; ++round) {
            user.tap(XK_a);
            surface->present(FloatingSurface::Keyboard::take);
            QTRY_VERIFY(surface->isKey());
            QTRY_COMPARE(QGuiApplication::focusWindow(), card.get());
            user.tap(XK_b);
            QTRY_COMPARE(card->keys, (QList<int>(round, Qt::Key_B)));
            QCOMPARE(became.count(), round);

            surface->orderOut();
            QVERIFY(!surface->isKey());
            QCOMPARE(resigned.count(), round);
            QTRY_VERIFY(client.hasFocus());
        }
        QTRY_COMPARE(client.keys().size(), std::size_t(8));
    }

    void oldUserActionDoesNotPreventTakingTheKeyboard()
    {
        // The user has worked in a window of ours, long before the application came.
        surface->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(surface->isKey());
        user.tap(XK_a);
        QTRY_COMPARE(card->keys.size(), 1);
        surface->orderOut();
        X11Client client;
        QTRY_VERIFY(client.hasFocus());
        QTest::qWait(20); // the server's time has to move on
        user.tap(XK_a);
        client.setNumbers("_NET_WM_USER_TIME", XCB_ATOM_CARDINAL, {serverTime(client)});
        surface->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(surface->isKey());
    }

    void leavesTheKeyboardOnRequest()
    {
        X11Client client;
        QTRY_VERIFY(client.hasFocus());
        surface->setFrame(lowerLeft({100, 100, 120, 80}));
        surface->present(FloatingSurface::Keyboard::leave);
        QTRY_VERIFY(isSeenAt({101, 101}));
        user.tap(XK_a);
        QTRY_COMPARE(client.keys().size(), std::size_t(2));
        QVERIFY(!surface->isKey());

        // Later the user asks for it.
        surface->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(surface->isKey());
        surface->orderOut();
        QTRY_VERIFY(client.hasFocus());
        surface->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(surface->isKey());
    }

    void staysAboveAClickedWindow()
    {
        X11Client client({.frame = {80, 80, 400, 300}});
        QTRY_VERIFY(client.hasFocus());
        const QPoint origin = client.frame().topLeft();
        const QRect over(origin + QPoint(50, 50), QSize(120, 80));
        surface->setFrame(lowerLeft(over));
        surface->present(FloatingSurface::Keyboard::leave);
        QTRY_VERIFY(isSeenAt(over.center()));
        user.click(origin + QPoint(250, 200));
        QTRY_VERIFY(client.hasFocus());
        QTest::qWait(100); // a raise would have happened by then
        QCOMPARE(user.colorAt(over.center()), paper);
    }

    void staysVisibleWhenAnotherApplicationIsActive()
    {
        Card second;
        const auto note = surfaces->adopt(second, FloatingSurface::Role::note);
        QRasterWindow reader;
        reader.setGeometry(900, 100, 200, 150);
        reader.show();
        surface->setFrame(lowerLeft({100, 100, 120, 80}));
        surface->present(FloatingSurface::Keyboard::take);
        note->setFrame(lowerLeft({300, 100, 120, 80}));
        note->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(note->isKey());
        X11Client client({.frame = {600, 400, 300, 200}});
        QTRY_VERIFY(client.isViewable());
        user.click(client.frame().center());
        QTRY_VERIFY(client.hasFocus());
        QTest::qWait(400); // some take their time to hide the tools of other programs
        QCOMPARE(user.colorAt({110, 110}), paper);
        QCOMPARE(user.colorAt({310, 110}), paper);
    }

    void clickElsewhereTakesTheKeyboardAway()
    {
        X11Client client({.frame = {600, 400, 300, 200}});
        QTRY_VERIFY(client.hasFocus());
        surface->setFrame(lowerLeft({100, 100, 120, 80}));
        surface->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(surface->isKey());
        QSignalSpy resigned(surface.get(), &FloatingSurface::resignedKey);
        user.click(client.frame().center());
        QTRY_COMPARE(resigned.count(), 1);
        QTRY_VERIFY(client.hasFocus());
        QVERIFY(surface->isVisible());
        QVERIFY(!surface->isKey());
        surface->orderOut();
        QCOMPARE(resigned.count(), 1);
    }

    void grabsOfOthersDoNotTakeTheKeyboardAway()
    {
        X11Client client;
        QTRY_VERIFY(client.hasFocus());
        surface->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(surface->isKey());
        QSignalSpy resigned(surface.get(), &FloatingSurface::resignedKey);
        for (int round = 0; round < 3; ++round) {
            const auto cookie =
                xcb_grab_keyboard(client.xcb(), false, client.root(), XCB_CURRENT_TIME,
                                  XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
            std::free(xcb_grab_keyboard_reply(client.xcb(), cookie, nullptr));
            user.tap(XK_c);
            xcb_ungrab_keyboard(client.xcb(), XCB_CURRENT_TIME);
            QVERIFY(!client.hasFocus()); // the answer comes once the grab has ended
        }
        user.tap(XK_d);
        QTRY_VERIFY(card->keys.contains(Qt::Key_D));
        QCOMPARE(resigned.count(), 0);
        QVERIFY(surface->isKey());
    }

    void hotkeyOfAnotherProgramDoesNotTakeTheKeyboardAway()
    {
        X11Client client;
        QTRY_VERIFY(client.hasFocus());
        const auto hotKey = user.keycodeOf(XK_F9);
        xcb_grab_key(client.xcb(), false, client.root(), XCB_MOD_MASK_ANY, hotKey,
                     XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        xcb_flush(client.xcb());
        surface->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(surface->isKey());
        QSignalSpy resigned(surface.get(), &FloatingSurface::resignedKey);
        user.tap(XK_F9);
        user.tap(XK_e);
        QTRY_VERIFY(card->keys.contains(Qt::Key_E));
        QCOMPARE(resigned.count(), 0);
    }

    void skipsWindowListsAndIsOnAllDesktops()
    {
        surface->setFrame(lowerLeft({100, 100, 120, 80}));
        surface->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(surface->isKey());
        const QString state = property(u"_NET_WM_STATE"_s);
        for (const auto& name : {u"ABOVE"_s, u"SKIP_TASKBAR"_s, u"SKIP_PAGER"_s})
            QVERIFY2(state.contains(name), qPrintable(state));
        switchDesktop(1);
        QTRY_VERIFY(isSeenAt({101, 101}));
        switchDesktop(0);
        QTRY_VERIFY(isSeenAt({101, 101}));
    }

    void userCanMoveIt()
    {
        surface->setFrame(lowerLeft({100, 100, 120, 80}));
        surface->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(surface->isKey());
        QTRY_VERIFY(isSeenAt({101, 101}));
        QSignalSpy moved(surface.get(), &FloatingSurface::frameChangedByUser);

        user.movePointer({150, 140});
        user.pressButton();
        QTRY_COMPARE(card->presses, 1);
        surface->startMove();
        // The window manager takes the pointer over in its own time.
        int step = 0;
        const auto followsThePointer = [&] {
            step = (step + 1) % 50;
            user.movePointer({150 + step, 140 + step});
            return windowFrame().topLeft() != QPoint(100, 100);
        };
        QTRY_VERIFY(followsThePointer());
        user.movePointer({350, 240});
        user.releaseButton();
        QTRY_COMPARE(windowFrame().topLeft(), QPoint(300, 200));
        QTRY_COMPARE(surface->frame(), lowerLeft({300, 200, 120, 80}));
        QVERIFY(moved.count() >= 1);
        QCOMPARE(moved.last().first().toRectF(), lowerLeft({300, 200, 120, 80}));
    }

    void moveIsReportedEvenIfOrderedOutImmediately()
    {
        surface->setFrame(lowerLeft({100, 100, 120, 80}));
        surface->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(surface->isKey());
        QTRY_COMPARE(windowFrame(), QRect(100, 100, 120, 80));
        QTest::qWait(300); // until it is not the window manager's placing any more
        QSignalSpy moved(surface.get(), &FloatingSurface::frameChangedByUser);
        QProcess::execute(u"xdotool"_s,
                          {u"windowmove"_s, QString::number(card->winId()), u"340"_s, u"220"_s});
        QTRY_COMPARE(card->position(), QPoint(340, 220));
        surface->orderOut();
        QCOMPARE(moved.count(), 1);
        QCOMPARE(surface->frame().topLeft(), lowerLeft({340, 220, 120, 80}).topLeft());
    }

    void hasItsShapeWithoutCompositing()
    {
        X11Client client({.frame = {50, 50, 500, 400}});
        QTRY_VERIFY(client.hasFocus());
        const QPoint origin = client.frame().topLeft() + QPoint(50, 50);
        surface->setFrame(lowerLeft({origin, QSize(120, 80)}));
        surface->setShape(QRegion(20, 20, 80, 40));
        QVERIFY(!surface->isComposited());
        surface->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(surface->isKey());
        QTRY_VERIFY(isSeenAt(origin + QPoint(20, 20)));
        QTRY_VERIFY(isSeenAt(origin + QPoint(99, 59)));
        QTRY_COMPARE(user.colorAt(origin + QPoint(19, 19)), QColor(Qt::white));
        QTRY_COMPARE(user.colorAt(origin + QPoint(100, 60)), QColor(Qt::white));

        user.movePointer(origin + QPoint(10, 10));
        QTRY_VERIFY(client.isUnderPointer()); // once the window manager knows the shape
        user.click(origin + QPoint(10, 10));
        QTRY_VERIFY(client.hasFocus());
    }

    void onlyInputIsShapedWithCompositing()
    {
        QSignalSpy changed(surface.get(), &FloatingSurface::compositedChanged);
        X11Client client({.frame = {50, 50, 500, 400}});
        QTRY_VERIFY(client.hasFocus());
        const xcb_atom_t selection = client.atom("_NET_WM_CM_S0");
        xcb_set_selection_owner(client.xcb(), client.window(), selection, XCB_CURRENT_TIME);
        xcb_flush(client.xcb());
        QTRY_VERIFY(surface->isComposited());
        QCOMPARE(changed.count(), 1);

        const QPoint origin = client.frame().topLeft() + QPoint(50, 50);
        surface->setFrame(lowerLeft({origin, QSize(120, 80)}));
        surface->setShape(QRegion(20, 20, 80, 40));
        surface->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(surface->isKey());
        QTRY_VERIFY(isSeenAt(origin + QPoint(1, 1)));
        user.movePointer(origin + QPoint(10, 10));
        QTRY_VERIFY(client.isUnderPointer()); // once the window manager knows the shape
        user.click(origin + QPoint(10, 10));
        QTRY_VERIFY(client.hasFocus());
        QTRY_VERIFY(client.isActive()); // or it would not look at the next click
        user.click(origin + QPoint(50, 40));
        QTRY_VERIFY(surface->isKey());

        client.quit();
        QTRY_VERIFY(!surface->isComposited());
        QCOMPARE(changed.count(), 2);
        QTRY_VERIFY(user.colorAt(origin + QPoint(1, 1)) != paper);
    }

    void clickThroughLetsTheMouseThrough_data()
    {
        QTest::addColumn<bool>("blended");
        QTest::addColumn<QRegion>("shape");
        QTest::newRow("whole") << false << QRegion();
        QTest::newRow("shaped") << false << QRegion(20, 20, 80, 40);
        QTest::newRow("blended, shaped") << true << QRegion(20, 20, 80, 40);
    }

    void clickThroughLetsTheMouseThrough()
    {
        QFETCH(bool, blended);
        QFETCH(QRegion, shape);
        X11Client client({.frame = {50, 50, 500, 400}});
        QTRY_VERIFY(client.hasFocus());
        if (blended) {
            xcb_set_selection_owner(client.xcb(), client.window(), client.atom("_NET_WM_CM_S0"),
                                    XCB_CURRENT_TIME);
            xcb_flush(client.xcb());
            QTRY_VERIFY(surface->isComposited());
        }
        const QPoint origin = client.frame().topLeft() + QPoint(50, 50);
        const QPoint middle = origin + QPoint(60, 40);
        surface->setFrame(lowerLeft({origin, QSize(120, 80)}));
        surface->setShape(shape);
        surface->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(surface->isKey());
        QTRY_VERIFY(isSeenAt(middle));
        user.click(middle);
        QTRY_COMPARE(card->presses, 1);

        surface->setClickThrough(true);
        user.movePointer(middle);
        QTRY_VERIFY(client.isUnderPointer());
        QCOMPARE(user.colorAt(middle), paper);
        user.click(middle);
        QTRY_VERIFY(client.hasFocus());
        QTRY_VERIFY(client.isActive());
        surface->setShape(shape);
        surface->orderOut();
        surface->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(surface->isKey());
        QTRY_VERIFY(client.isUnderPointer());

        surface->setClickThrough(false);
        QTRY_VERIFY(!client.isUnderPointer());
        user.click(middle);
        QTRY_COMPARE(card->presses, 2);
    }

    void survivesAChangeOfWindowManager()
    {
        surface->setFrame(lowerLeft({100, 100, 120, 80}));
        surface->present(FloatingSurface::Keyboard::leave);
        QTRY_VERIFY(isSeenAt({101, 101}));
        desktop.setWindowManager(windowManager);

        QTRY_COMPARE(windowFrame(), QRect(100, 100, 120, 80));
        QTRY_VERIFY(isSeenAt({101, 101}));
        QTRY_VERIFY(property(u"_NET_WM_STATE"_s).contains(u"ABOVE"_s));
        X11Client client({.frame = {600, 400, 300, 200}});
        QTRY_VERIFY(client.isViewable());
        user.click(client.frame().center());
        QTRY_VERIFY(client.hasFocus());
        surface->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(surface->isKey());
        surface->orderOut();
        surface->setFrame(lowerLeft({300, 200, 120, 80}));
        surface->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(surface->isKey());
        QTRY_COMPARE(windowFrame(), QRect(300, 200, 120, 80));
    }

    void reappearsWithASlowWindowManager()
    {
        X11Client client;
        QTRY_VERIFY(client.hasFocus());
        surface->setFrame(lowerLeft({500, 100, 120, 80}));
        surface->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(surface->isKey());
        QTRY_VERIFY(isSeenAt({501, 101}));

        desktop.freezeWindowManager();
        surface->orderOut();
        surface->setFrame(lowerLeft({700, 200, 120, 80}));
        surface->present(FloatingSurface::Keyboard::take);
        QGuiApplication::sync();
        desktop.thawWindowManager();

        QTRY_VERIFY(surface->isKey());
        QTRY_VERIFY(isSeenAt({701, 201}));
        QTRY_COMPARE(windowFrame(), QRect(700, 200, 120, 80));
        if (windowManager == u"i3")
            return; // it heeds no such states
        for (const auto& name : {u"ABOVE"_s, u"SKIP_TASKBAR"_s, u"SKIP_PAGER"_s})
            QTRY_VERIFY(property(u"_NET_WM_STATE"_s).contains(name));
    }

    void isShownEvenIfTheWindowManagerEnds()
    {
        desktop.freezeWindowManager();
        surface->setFrame(lowerLeft({100, 100, 120, 80}));
        surface->present(FloatingSurface::Keyboard::leave);
        QGuiApplication::sync();
        desktop.crashWindowManager();
        desktop.setWindowManager(windowManager);

        QTRY_VERIFY(isSeenAt({101, 101}));
        QTRY_COMPARE(windowFrame(), QRect(100, 100, 120, 80));
        QCOMPARE(surface->frame(), lowerLeft({100, 100, 120, 80}));
    }

private:
    /// Whether the card is seen there, and not what is left of the last one.
    [[nodiscard]] bool isSeenAt(QPoint pixel) const
    {
        return card->isExposed() && user.colorAt(pixel) == paper;
    }

    [[nodiscard]] QRect windowFrame() const
    {
        return user.frameOf(static_cast<xcb_window_t>(card->winId()));
    }

    [[nodiscard]] QString property(const QString& name) const
    {
        QProcess query;
        query.start(u"xprop"_s, {u"-id"_s, QString::number(card->winId()), name});
        query.waitForFinished();
        return QString::fromUtf8(query.readAllStandardOutput());
    }

    void switchDesktop(int index) const
    {
        if (windowManager == u"i3")
            QProcess::execute(u"i3-msg"_s, {u"workspace"_s, QString::number(index + 1)});
        else
            QProcess::execute(u"xdotool"_s, {u"set_desktop"_s, QString::number(index)});
    }

    static std::uint32_t serverTime(const X11Client& client)
    {
        // The test extension's keys carry the server's time; so does a property's change.
        const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(client.xcb(), client.window(), XCB_CW_EVENT_MASK, &events);
        client.setNumbers("_TIME", XCB_ATOM_CARDINAL, {0});
        while (auto* event = xcb_wait_for_event(client.xcb())) {
            const bool isChange = (event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY;
            const auto time = reinterpret_cast<xcb_property_notify_event_t*>(event)->time;
            std::free(event);
            if (isChange)
                return time;
        }
        return 0;
    }

    [[nodiscard]] static bool isAtTheEdge(const QRect& pixels)
    {
        return !screenFrame.contains(pixels);
    }

    VirtualDesktop& desktop;
    const QString windowManager =
        qEnvironmentVariable("DRIFTBOX_TEST_WINDOW_MANAGER", u"openbox"_s);
    X11User user;
    std::unique_ptr<X11Connection> connection;
    std::unique_ptr<X11FloatingSurfaceFactory> surfaces;
    std::unique_ptr<Card> card;
    std::unique_ptr<FloatingSurface> surface;
};

static int runTestX11FloatingSurface(int argc, char** argv)
{
    VirtualDesktop desktop;
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QGuiApplication application(argc, argv);
    TestX11FloatingSurface test(desktop);
    return QTest::qExec(&test, argc, argv);
}
DRIFTBOX_TEST_MAIN(TestX11FloatingSurface, runTestX11FloatingSurface)
#include "TestX11FloatingSurface.moc"
