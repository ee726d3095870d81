#pragma once

#include "support/main/TestMain.h"

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

namespace driftbox {

/// A real compositor without a screen to look at. WAYLAND_DISPLAY and XDG_RUNTIME_DIR point to it
/// from construction on; it ends with this object.
class SwayDesktop
{
public:
    /// Stops the test program when the compositor does not come up.
    SwayDesktop();
    ~SwayDesktop();
    Q_DISABLE_COPY_MOVE(SwayDesktop)

    /// Ends the compositor without a chance to say goodbye.
    void crash();

private:
    void writeConfiguration();
    void start();
    void awaitDisplay();

    QTemporaryDir m_folder;
    QProcess m_process;
};

/// Runs a test class on a compositor of its own.
template <typename TestClass>
int runWaylandTest(int argc, char** argv)
{
    const SwayDesktop desktop;
    return runTest<TestClass, QCoreApplication>(argc, argv);
}

} // namespace driftbox

/// Registers a test class that needs a Wayland compositor.
#define DRIFTBOX_WAYLAND_TEST(TestClass)                                                           \
    DRIFTBOX_TEST_MAIN(TestClass, driftbox::runWaylandTest<TestClass>)
