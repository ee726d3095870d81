#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/windows/X11FloatingSurfaceFactory.h"
#include "platform/x11/windows/X11WindowManager.h"
#include "platform/x11/windows/X11Workspace.h"
#include "support/VirtualDesktop.h"
#include "support/X11Client.h"
#include "support/X11User.h"
#include "support/main/TestMain.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QWindow>
#include <QtTest/QTest>

#include <X11/keysym.h>

using namespace driftbox;
using namespace Qt::StringLiterals;

/// What is left of the desktop when no window manager runs, or one comes and goes.
class TestX11WithoutWindowManager : public QObject
{
    Q_OBJECT

public:
    explicit TestX11WithoutWindowManager(VirtualDesktop& virtualDesktop)
        : desktop(virtualDesktop)
    {
    }

private Q_SLOTS:
    void init()
    {
        desktop.setWindowManager({});
        connection = X11Connection::open();
        QVERIFY(connection);
        workspace = std::make_unique<X11Workspace>(*connection);
    }

    void cleanup()
    {
        workspace.reset();
        connection.reset();
    }

    void windowWithTheKeyboardIsFrontmost()
    {
        QVERIFY(!X11WindowManager(*connection, connection->xcb()).isPresent());
        const X11Client client({.windowClass = "Mousepad"});
        QTRY_VERIFY(client.isViewable());
        client.takeFocus();
        QTRY_VERIFY(client.hasFocus());
        const auto application = workspace->frontmostApplication();
        QVERIFY(application);
        QCOMPARE(application->bundleIdentifier(), std::optional(u"Mousepad"_s));
    }

    void windowUnderThePointerGetsTheKeysOtherwise()
    {
        const X11Client client({.frame = {100, 100, 300, 200}});
        QTRY_VERIFY(client.isViewable());
        xcb_set_input_focus(client.xcb(), XCB_INPUT_FOCUS_POINTER_ROOT,
                            XCB_INPUT_FOCUS_POINTER_ROOT, XCB_CURRENT_TIME);
        xcb_flush(client.xcb());
        user.movePointer({150, 150});
        QVERIFY(workspace->frontmostApplication());
        user.movePointer({800, 800});
        QVERIFY(!workspace->frontmostApplication());
    }

    void activationGivesTheKeyboard()
    {
        const X11Client first;
        QTRY_VERIFY(first.isViewable());
        first.takeFocus();
        QTRY_VERIFY(first.hasFocus());
        const auto application = workspace->frontmostApplication();
        QVERIFY(application);
        const X11Client second;
        QTRY_VERIFY(second.isViewable());
        second.takeFocus();
        QTRY_VERIFY(second.hasFocus());
        application->activate();
        QTRY_VERIFY(first.hasFocus());
    }

    void floatingWindowTakesTheKeyboard()
    {
        X11Client client;
        QTRY_VERIFY(client.isViewable());
        client.takeFocus();
        QTRY_VERIFY(client.hasFocus());

        X11FloatingSurfaceFactory surfaces(*connection);
        QWindow window;
        window.resize(200, 100);
        window.create();
        const auto panel = surfaces.adopt(window, FloatingSurface::Role::panel);
        for (int round = 0; round < 3; ++round) {
            panel->setFrame({100, 600, 200, 100});
            panel->present(FloatingSurface::Keyboard::take);
            QTRY_VERIFY(panel->isKey());
            QTRY_COMPARE(QGuiApplication::focusWindow(), &window);
            QCOMPARE(window.geometry(), QRect(100, 200, 200, 100));
            panel->orderOut();
            client.takeFocus();
            QTRY_VERIFY(client.hasFocus());
        }
        panel->present(FloatingSurface::Keyboard::leave);
        QTRY_VERIFY(window.isExposed());
        user.tap(XK_a);
        QTRY_COMPARE(client.keys().size(), std::size_t(2));
        QVERIFY(!panel->isKey());
        // Shown already, asked for again.
        panel->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(panel->isKey());
    }

    void laterWindowManagerIsNoticed()
    {
        desktop.setWindowManager(u"openbox"_s);
        QVERIFY(X11WindowManager(*connection, connection->xcb()).isPresent());
        const X11Client first({.windowClass = "First"});
        QTRY_VERIFY(first.hasFocus());
        const X11Client second({.windowClass = "Second"});
        QTRY_VERIFY(second.hasFocus());
        QTRY_COMPARE(workspace->frontmostApplication()->bundleIdentifier(),
                     std::optional(u"Second"_s));
    }

    void propertiesOfACrashedWindowManagerAreIgnored()
    {
        desktop.setWindowManager(u"openbox"_s);
        desktop.crashWindowManager();
        QTRY_VERIFY(!X11WindowManager(*connection, connection->xcb()).isPresent());
    }

private:
    VirtualDesktop& desktop;
    X11User user;
    std::unique_ptr<X11Connection> connection;
    std::unique_ptr<X11Workspace> workspace;
};

static int runTestX11WithoutWindowManager(int argc, char** argv)
{
    VirtualDesktop desktop;
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QGuiApplication application(argc, argv);
    TestX11WithoutWindowManager test(desktop);
    return QTest::qExec(&test, argc, argv);
}
DRIFTBOX_TEST_MAIN(TestX11WithoutWindowManager, runTestX11WithoutWindowManager)
#include "TestX11WithoutWindowManager.moc"
