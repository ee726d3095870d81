#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/windows/X11FloatingSurfaceFactory.h"
#include "platform/x11/windows/X11Screens.h"
#include "support/VirtualDesktop.h"
#include "support/X11Client.h"
#include "support/X11User.h"
#include "support/main/TestMain.h"

#include <QtCore/QProcess>
#include <QtGui/QGuiApplication>
#include <QtGui/QRasterWindow>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

// The left screen has two pixels a point and the right one, the primary, one. They stand side by
// side, the left one 100 pixels lower.
constexpr QRect leftPixels(0, 100, 1280, 900);
constexpr QRect rightPixels(1280, 0, 1920, 1080);

void arrangeScreens()
{
    QProcess::execute(u"xrandr"_s,
                      {u"--setmonitor"_s, u"left"_s, u"1280/320x900/240+0+100"_s, u"screen"_s});
    QProcess::execute(u"xrandr"_s,
                      {u"--setmonitor"_s, u"*right"_s, u"1920/480x1080/270+1280+0"_s, u"none"_s});
}

} // namespace

class TestX11Screens : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        connection = X11Connection::open();
        QVERIFY(connection);
        screens = std::make_unique<X11Screens>(*connection);
    }

    void cleanup()
    {
        screens.reset();
        connection.reset();
    }

    void primaryScreenIsFirstAndHasTheOrigin()
    {
        const auto list = screens->screens();
        QCOMPARE(list.size(), std::size_t(2));
        QCOMPARE(list[0].frame, QRectF(0, 0, 1920, 1080));
        QCOMPARE(list[0].visibleFrame, list[0].frame);
        QCOMPARE(list[0].deviceFrame, rightPixels);
        QCOMPARE(list[0].scale, 1.0);

        QCOMPARE(list[1].frame, QRectF(-1280, 1080 - 100 - 450, 640, 450));
        QCOMPARE(list[1].visibleFrame, list[1].frame);
        QCOMPARE(list[1].deviceFrame, leftPixels);
        QCOMPARE(list[1].scale, 2.0);
    }

    void panelReservesSpaceOnItsOwnScreenOnly()
    {
        X11Client bar({.frame = {0, 960, 1280, 40}});
        // 80 pixels of the desktop lie below the left screen.
        bar.setNumbers("_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL,
                       {0, 0, 0, 120, 0, 0, 0, 0, 0, 0, 0, 1279});
        const auto withoutBar = QRectF(-1280, 1080 - 100 - 450 + 20, 640, 430);
        QTRY_COMPARE(screens->screens()[1].visibleFrame, withoutBar);
        QCOMPARE(screens->screens()[1].frame, QRectF(-1280, 530, 640, 450));
        QCOMPARE(screens->screens()[0].visibleFrame, QRectF(0, 0, 1920, 1080));

        X11Client dock({.frame = {1280, 0, 64, 1080}});
        dock.setNumbers("_NET_WM_STRUT", XCB_ATOM_CARDINAL, {1344, 0, 0, 0});
        QTRY_COMPARE(screens->screens()[0].visibleFrame, QRectF(64, 0, 1856, 1080));
        QCOMPARE(screens->screens()[1].visibleFrame, withoutBar);

        bar.quit();
        QTRY_COMPARE(screens->screens()[1].visibleFrame, screens->screens()[1].frame);
    }

    void mouseIsFoundOnEveryScreen()
    {
        user.movePointer({1280 + 10, 20});
        QTRY_COMPARE(screens->mouseLocation(), QPointF(10, 1060));
        user.movePointer({200, 300});
        QTRY_COMPARE(screens->mouseLocation(), QPointF(-1280 + 100, 1080 - 100 - 100));
        QVERIFY(screens->screens()[1].frame.contains(screens->mouseLocation()));
    }

    void floatingWindowIsPlacedExactlyOnEitherScreen_data()
    {
        QTest::addColumn<QRectF>("frame");
        QTest::addColumn<QRect>("pixels");
        QTest::newRow("primary") << QRectF(684, 216, 552, 648) << QRect(1964, 216, 552, 648);
        QTest::newRow("left") << QRectF(-1200, 600, 240, 200) << QRect(160, 460, 480, 400);
    }

    void floatingWindowIsPlacedExactlyOnEitherScreen()
    {
        QFETCH(QRectF, frame);
        QFETCH(QRect, pixels);
        X11FloatingSurfaceFactory surfaces(*connection);
        QRasterWindow window;
        window.create();
        const auto surface = surfaces.adopt(window, FloatingSurface::Role::note);
        surface->setFrame(frame);
        surface->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(surface->isKey());
        QTRY_COMPARE(pixelsOf(window), pixels);
        QCOMPARE(surface->frame(), frame);

        surface->orderOut();
        const QRectF other(100, 100, 200, 100);
        surface->setFrame(other);
        surface->present(FloatingSurface::Keyboard::take);
        QTRY_COMPARE(pixelsOf(window), QRect(1380, 880, 200, 100));
        surface->setFrame(frame);
        QTRY_COMPARE(pixelsOf(window), pixels);
        QTest::qWait(150); // longer than a late correction would take
        QCOMPARE(surface->frame(), frame);
        QCOMPARE(pixelsOf(window), pixels);
    }

private:
    [[nodiscard]] QRect pixelsOf(const QWindow& window) const
    {
        return user.frameOf(static_cast<xcb_window_t>(window.winId()));
    }

    X11User user;
    std::unique_ptr<X11Connection> connection;
    std::unique_ptr<X11Screens> screens;
};

static int runTestX11Screens(int argc, char** argv)
{
    const VirtualDesktop desktop(u"3200x1080x24"_s);
    arrangeScreens();
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("QT_SCREEN_SCALE_FACTORS", "left=2;right=1");
    const QGuiApplication application(argc, argv);
    TestX11Screens test;
    return QTest::qExec(&test, argc, argv);
}
DRIFTBOX_TEST_MAIN(TestX11Screens, runTestX11Screens)
#include "TestX11Screens.moc"
