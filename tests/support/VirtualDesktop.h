#pragma once

#include "support/WindowManager.h"
#include "support/main/TestMain.h"

#include <memory>

#include <QtCore/QProcess>
#include <QtCore/QString>
#include <QtGui/QGuiApplication>

namespace driftbox {

/// A real X server without a screen to look at, with a real window manager, for the tests of one
/// executable. DISPLAY points to it from construction on; both programs end with it.
class VirtualDesktop
{
public:
    /// `screen` is the geometry and depth of the X server's screen. Stops the test program when a
    /// part does not come up.
    /// The window manager is openbox unless DRIFTBOX_TEST_WINDOW_MANAGER names another.
    explicit VirtualDesktop(const QString& screen = QStringLiteral("1440x900x24"));
    ~VirtualDesktop();
    VirtualDesktop(const VirtualDesktop&) = delete;
    VirtualDesktop& operator=(const VirtualDesktop&) = delete;

    /// Ends the window manager and starts another one; none for an empty name.
    void setWindowManager(const QString& name);
    /// Has the window manager hear nothing until it is thawed.
    void freezeWindowManager() { m_windowManager->freeze(); }
    void thawWindowManager() { m_windowManager->thaw(); }
    /// Kills the window manager, which leaves everything on the server as it is.
    void crashWindowManager();

private:
    void startServer(const QString& screen);

    QProcess m_server;
    std::unique_ptr<WindowManager> m_windowManager;
};

/// Runs a test class on a display of its own.
template <typename TestClass>
int runDisplayTest(int argc, char** argv)
{
    const VirtualDesktop desktop;
    qputenv("QT_QPA_PLATFORM", "xcb");
    return runTest<TestClass, QGuiApplication>(argc, argv);
}

} // namespace driftbox

/// Registers a test class that needs a display.
#define DRIFTBOX_DISPLAY_TEST(TestClass)                                                           \
    DRIFTBOX_TEST_MAIN(TestClass, driftbox::runDisplayTest<TestClass>)
