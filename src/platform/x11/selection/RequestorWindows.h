#pragma once

#include <deque>

#include <QtCore/QObject>

#include <xcb/xcb.h>

namespace driftbox {

class Clock;
class X11Connection;

/// The invisible windows to which owners of selections hand their data. Main thread only.
///
/// A window is used again and again while owners complete what they were asked for. Once one is
/// asked and not waited for, its window is retired, so that a late answer is not taken for the one
/// to a later question. A retired window lives on for a while: many programs end with an error when
/// the window that they answer to is gone.
class RequestorWindows final : public QObject
{
public:
    RequestorWindows(X11Connection& connection, Clock& clock);
    ~RequestorWindows() override;

    /// The window to ask with.
    [[nodiscard]] xcb_window_t current();
    /// Takes the current window out of use.
    void retireCurrent();

private:
    void destroyOldest();

    X11Connection& m_connection;
    Clock& m_clock;
    xcb_window_t m_current = XCB_NONE;
    std::deque<xcb_window_t> m_retired; ///< the oldest first
};

} // namespace driftbox
