#pragma once

#include <xcb/xcb.h>

/// The toolkit's own connection to the X server. Requests about the toolkit's windows use it, so
/// that they stay in order with the toolkit's own requests. The application object must run on X11.
namespace driftbox::QtXcb {

[[nodiscard]] xcb_connection_t* connection();

/// Reports a user action to the toolkit, which does not see the user's actions in other programs.
/// Window managers compare the time of a program's last action with that of others; an outdated one
/// would keep a window in the background. Returns the server's current time. Round trip.
xcb_timestamp_t noteUserAction();

} // namespace driftbox::QtXcb
