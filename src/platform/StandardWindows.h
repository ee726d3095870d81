#pragma once

class QWindow;

namespace driftbox {

/// The program's ordinary windows: those with a title bar, that the user finds in the task bar.
/// Main thread only.
class StandardWindows
{
public:
    StandardWindows() = default;
    StandardWindows(const StandardWindows&) = delete;
    StandardWindows& operator=(const StandardWindows&) = delete;
    virtual ~StandardWindows() = default;

    /// Puts the window, created but never shown, into the middle of the screen that the user is at;
    /// makes it smaller where it does not fit.
    virtual void center(QWindow& window) = 0;

    /// Shows the window, minimized or not, in front of all others and directs the typing to it,
    /// whatever program the user is in.
    virtual void present(QWindow& window) = 0;
};

} // namespace driftbox
