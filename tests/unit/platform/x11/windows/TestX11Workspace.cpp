#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/windows/X11FloatingSurfaceFactory.h"
#include "platform/x11/windows/X11Workspace.h"
#include "support/VirtualDesktop.h"
#include "support/X11Client.h"
#include "support/X11User.h"

#include <QtCore/QProcess>
#include <QtGui/QGuiApplication>
#include <QtGui/QWindow>
#include <QtTest/QTest>

#include <X11/keysym.h>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestX11Workspace : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        connection = X11Connection::open();
        QVERIFY(connection);
        workspace = std::make_unique<X11Workspace>(*connection);
    }

    void cleanup()
    {
        workspace.reset();
        connection.reset();
    }

    void emptyDesktopHasNoFrontmostApplication()
    {
        QTRY_VERIFY(!workspace->frontmostApplication());
    }

    void activeWindowIdentifiesTheApplication()
    {
        const X11Client client({.windowClass = "Mousepad"});
        QTRY_VERIFY(client.hasFocus());
        QTRY_VERIFY(workspace->frontmostApplication());
        const auto application = workspace->frontmostApplication();
        QCOMPARE(application->bundleIdentifier(), std::optional(u"Mousepad"_s));
        QCOMPARE(application->processIdentifier(), getpid());
        QVERIFY(application->isFinishedLaunching());
        QVERIFY(!application->isTerminated());
    }

    void processIdOfTheServerTakesPrecedence()
    {
        // What a program in a sandbox claims.
        const X11Client client({.claimedProcess = 2});
        QTRY_VERIFY(client.hasFocus());
        QTRY_VERIFY(workspace->frontmostApplication());
        QCOMPARE(workspace->frontmostApplication()->processIdentifier(), getpid());
    }

    void windowWithoutAClassHasNoBundleId()
    {
        const X11Client client({.windowClass = {}});
        QTRY_VERIFY(client.hasFocus());
        QTRY_VERIFY(workspace->frontmostApplication());
        QVERIFY(!workspace->frontmostApplication()->bundleIdentifier());
    }

    void applicationIsTerminatedOnceItsWindowIsGone()
    {
        X11Client client;
        QTRY_VERIFY(client.hasFocus());
        QTRY_VERIFY(workspace->frontmostApplication());
        const auto application = workspace->frontmostApplication();
        client.quit();
        QTRY_VERIFY(application->isTerminated());
        application->activate();
        QTRY_VERIFY(!workspace->frontmostApplication());
    }

    void applicationIsTerminatedOnceItsProcessIsGone()
    {
        QProcess program;
        program.start(u"xterm"_s, {u"-e"_s, u"cat"_s});
        QVERIFY(program.waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(workspace->frontmostApplication(), 10'000);
        const auto application = workspace->frontmostApplication();
        QCOMPARE(application->processIdentifier(), pid_t(program.processId()));
        QCOMPARE(application->bundleIdentifier(), std::optional(u"XTerm"_s));
        program.kill();
        program.waitForFinished();
        QVERIFY(application->isTerminated());
    }

    void activationRaisesTheApplication()
    {
        X11Client first;
        QTRY_VERIFY(first.hasFocus());
        QTRY_VERIFY(workspace->frontmostApplication());
        const auto application = workspace->frontmostApplication();
        const X11Client second({.frame = {200, 200, 300, 200}});
        QTRY_VERIFY(second.hasFocus());
        // The user has been busy in the other window.
        user.tap(XK_a);

        application->activate();
        QTRY_VERIFY(first.hasFocus());
        user.tap(XK_b);
        QTRY_COMPARE(first.keys().size(), std::size_t(2));
    }

    void ownFloatingWindowsAreNotFrontmost()
    {
        const X11Client client({.windowClass = "Mousepad"});
        QTRY_VERIFY(client.hasFocus());
        QTRY_VERIFY(workspace->frontmostApplication());

        QWindow window;
        window.create();
        X11FloatingSurfaceFactory surfaces(*connection);
        const auto panel = surfaces.adopt(window, FloatingSurface::Role::panel);
        panel->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(panel->isKey());
        const auto application = workspace->frontmostApplication();
        QVERIFY(application);
        QCOMPARE(application->bundleIdentifier(), std::optional(u"Mousepad"_s));
    }

    void ownOrdinaryWindowsAreFrontmost()
    {
        QWindow reader;
        reader.resize(300, 200);
        reader.show();
        reader.requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(&reader));
        QTRY_VERIFY(workspace->frontmostApplication());
        QCOMPARE(workspace->frontmostApplication()->processIdentifier(), getpid());
    }

    void nothingIsFrontmostOnceTheApplicationBehindIsGone()
    {
        X11Client client;
        QTRY_VERIFY(client.hasFocus());
        QWindow window;
        window.create();
        X11FloatingSurfaceFactory surfaces(*connection);
        const auto panel = surfaces.adopt(window, FloatingSurface::Role::panel);
        panel->present(FloatingSurface::Keyboard::take);
        QTRY_VERIFY(panel->isKey());
        client.quit();
        QTRY_VERIFY(!workspace->frontmostApplication());
    }

private:
    X11User user;
    std::unique_ptr<X11Connection> connection;
    std::unique_ptr<X11Workspace> workspace;
};

DRIFTBOX_DISPLAY_TEST(TestX11Workspace)
#include "TestX11Workspace.moc"
