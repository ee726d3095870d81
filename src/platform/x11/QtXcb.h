#pragma once

#include <xcb/xcb.h>

/// The toolkit's own connection to the X server. What is said about the toolkit's windows goes over
/// it, so that it arrives in order with what the toolkit says. The application object must run on
/// X11.
namespace driftbox::QtXcb {

[[nodiscard]] xcb_connection_t* connection();

/// The server's time now. Round trip.
[[nodiscard]] xcb_timestamp_t serverTime();

/// Lets the toolkit take `time` for the time of the user's last action. It cannot know better: what
/// the user does in other programs does not reach it.
void setUserTime(xcb_timestamp_t time);

} // namespace driftbox::QtXcb
