#pragma once

#include <array>
#include <cstdint>

#include <xcb/xcb.h>

namespace driftbox {

class X11Connection;

/// Requests to the window manager, which may be absent, lack support for these messages, or be
/// replaced at any time. Main thread only.
class X11WindowManager
{
public:
    using Data = std::array<std::uint32_t, 5>;

    /// Messages are sent on `sender`, so that they stay in order with its other requests. Both must
    /// outlive this.
    X11WindowManager(X11Connection& connection, xcb_connection_t* sender);

    /// Whether a window manager that follows the freedesktop.org conventions is running. Round
    /// trips.
    [[nodiscard]] bool isPresent() const;

    /// Raises `window` and gives it the keyboard focus on behalf of the user. `time` is the
    /// server's time, as recent as possible.
    void activate(xcb_window_t window, xcb_timestamp_t time) const;

    /// The same without a window manager; `window` must be mapped.
    void activateDirectly(xcb_window_t window) const;

    void send(xcb_window_t window, const char* message, const Data& data) const;

private:
    X11Connection& m_connection;
    xcb_connection_t* m_sender;
};

/// Adds `events` to those of `window` that `connection` receives. Round trip.
void addEvents(const X11Connection& connection, xcb_window_t window, std::uint32_t events);

} // namespace driftbox
