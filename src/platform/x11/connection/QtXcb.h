#pragma once

#include <xcb/xcb.h>

/// The toolkit's own connection to the X server. What is said about the toolkit's windows goes over
/// it, so that it arrives in order with what the toolkit says. The application object must run on
/// X11.
namespace driftbox::QtXcb {

[[nodiscard]] xcb_connection_t* connection();

/// Lets the toolkit know that the user acted just now: what the user does in other programs does
/// not reach it. Window managers compare the time of the last action in this program with that in
/// others; an old one would keep a window in the background. The server's time now. Round trip.
xcb_timestamp_t noteUserAction();

} // namespace driftbox::QtXcb
