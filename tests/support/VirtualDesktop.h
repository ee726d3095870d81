#pragma once

#include "support/WindowManager.h"
#include "support/main/TestMain.h"

#include <memory>

#include <QtCore/QProcess>
#include <QtCore/QString>
#include <QtGui/QGuiApplication>

namespace driftbox {

/// A headless X server with a real window manager, for the tests of one executable. DISPLAY points
/// to it once this is constructed. Both processes end with this object.
class VirtualDesktop
{
public:
    /// `screen` is the geometry and depth of the X server's screen. Aborts the test program if a
    /// process does not start.
    /// The window manager is openbox unless DRIFTBOX_TEST_WINDOW_MANAGER names another.
    explicit VirtualDesktop(const QString& screen = QStringLiteral("1440x900x24"));
    ~VirtualDesktop();
    VirtualDesktop(const VirtualDesktop&) = delete;
    VirtualDesktop& operator=(const VirtualDesktop&) = delete;

    /// Ends the window manager and starts another one, or none if `name` is empty.
    void setWindowManager(const QString& name);
    /// Suspends the window manager until it is thawed.
    void freezeWindowManager() { m_windowManager->freeze(); }
    void thawWindowManager() { m_windowManager->thaw(); }
    /// Kills the window manager without letting it clean up its windows.
    void crashWindowManager();

private:
    void startServer(const QString& screen);

    QProcess m_server;
    std::unique_ptr<WindowManager> m_windowManager;
};

/// Runs a test class on its own display.
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
