#pragma once

#include <cstdint>

#include <xcb/xcb.h>

namespace driftbox {

class X11Connection;

/// What is asked of the window manager. There may be none, or one that knows nothing of these
/// messages, or another one tomorrow.
namespace X11WindowManager {

/// Whether one runs that follows the freedesktop.org conventions. Round trips.
[[nodiscard]] bool isPresent(X11Connection& connection);

/// Brings `window` to the front and gives it the keyboard, as a pager would: with the user's
/// authority. `time` is the server's, as late as can be had.
void activate(X11Connection& connection, xcb_window_t window, xcb_timestamp_t time);

/// The same where no window manager is present; `window` must be mapped.
void activateByHand(const X11Connection& connection, xcb_window_t window);

} // namespace X11WindowManager

/// Adds to the events of `window` that `connection` is told of. Round trip.
void addEvents(const X11Connection& connection, xcb_window_t window, std::uint32_t events);

} // namespace driftbox
