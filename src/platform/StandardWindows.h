#pragma once

#include <QtCore/QtGlobal>

class QWindow;

namespace driftbox {

/// The program's ordinary windows: those with a title bar that are listed in the task bar. Main
/// thread only.
class StandardWindows
{
public:
    StandardWindows() = default;
    Q_DISABLE_COPY_MOVE(StandardWindows)
    virtual ~StandardWindows() = default;

    /// Centers the window, which must be created but never shown, on the user's current screen;
    /// shrinks it if it does not fit.
    virtual void center(QWindow& window) = 0;

    /// Shows and raises the window, minimized or not, and gives it the keyboard focus, whichever
    /// program is active.
    virtual void present(QWindow& window) = 0;
};

} // namespace driftbox
