#include "platform/x11/X11WindowManager.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Properties.h"
#include "platform/x11/X11Reply.h"

namespace driftbox {

namespace X11WindowManager {

namespace {

constexpr std::uint32_t sourceIsUser = 2;

} // namespace

bool isPresent(X11Connection& connection)
{
    // The property outlives a window manager that crashed; the window it names does not.
    constexpr auto check = "_NET_SUPPORTING_WM_CHECK";
    const auto announced = X11Properties::number(connection, connection.root(), check);
    return announced && X11Properties::number(connection, *announced, check) == announced;
}

void activate(X11Connection& connection, xcb_window_t window, xcb_timestamp_t time)
{
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = connection.atom("_NET_ACTIVE_WINDOW");
    message.data.data32[0] = sourceIsUser;
    message.data.data32[1] = time;
    xcb_send_event(connection.xcb(), false, connection.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
    connection.flush();
}

void activateByHand(const X11Connection& connection, xcb_window_t window)
{
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(connection.xcb(), window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    xcb_set_input_focus(connection.xcb(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    xcb_flush(connection.xcb());
}

} // namespace X11WindowManager

void addEvents(const X11Connection& connection, xcb_window_t window, std::uint32_t events)
{
    const auto cookie = xcb_get_window_attributes(connection.xcb(), window);
    const X11Reply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(connection.xcb(), cookie, nullptr));
    if (!attributes)
        return;
    const std::uint32_t mask = attributes->your_event_mask | events;
    xcb_change_window_attributes(connection.xcb(), window, XCB_CW_EVENT_MASK, &mask);
}

} // namespace driftbox
