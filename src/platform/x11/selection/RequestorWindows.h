#pragma once

#include <deque>

#include <QtCore/QObject>

#include <xcb/xcb.h>

namespace driftbox {

class Clock;
class X11Connection;

/// The hidden windows that receive data from selection owners. Main thread only.
///
/// A window is reused as long as owners complete their transfers. When a transfer is abandoned, its
/// window is retired, so that a late answer is not mistaken for the answer to a later request. A
/// retired window is kept for a while: many programs terminate with an error when the window that
/// they answer to no longer exists.
class RequestorWindows final : public QObject
{
public:
    RequestorWindows(X11Connection& connection, Clock& clock);
    ~RequestorWindows() override;

    /// The window for the next request.
    [[nodiscard]] xcb_window_t current();
    /// Stops using the current window.
    void retireCurrent();

private:
    void destroyOldest();

    X11Connection& m_connection;
    Clock& m_clock;
    xcb_window_t m_current = XCB_NONE;
    std::deque<xcb_window_t> m_retired; ///< the oldest first
};

} // namespace driftbox
