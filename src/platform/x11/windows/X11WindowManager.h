#pragma once

#include <array>
#include <cstdint>

#include <xcb/xcb.h>

namespace driftbox {

class X11Connection;

/// What is asked of the window manager. There may be none, or one that knows nothing of these
/// messages, or another one tomorrow. Main thread only.
class X11WindowManager
{
public:
    using Data = std::array<std::uint32_t, 5>;

    /// Messages go over `sender`, so that they arrive in order with what else is sent over it. Both
    /// must outlive this.
    X11WindowManager(X11Connection& connection, xcb_connection_t* sender);

    /// Whether one runs that follows the freedesktop.org conventions. Round trips.
    [[nodiscard]] bool isPresent() const;

    /// Brings `window` to the front and gives it the keyboard, with the user's authority. `time` is
    /// the server's, as late as can be had.
    void activate(xcb_window_t window, xcb_timestamp_t time) const;

    /// The same where no window manager is present; `window` must be mapped.
    void activateByHand(xcb_window_t window) const;

    void send(xcb_window_t window, const char* message, const Data& data) const;

private:
    X11Connection& m_connection;
    xcb_connection_t* m_sender;
};

/// Adds to the events of `window` that `connection` is told of. Round trip.
void addEvents(const X11Connection& connection, xcb_window_t window, std::uint32_t events);

} // namespace driftbox
