#include "platform/x11/windows/X11WindowManager.h"

#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/connection/X11Properties.h"
#include "platform/x11/connection/X11Reply.h"

#include <algorithm>

namespace driftbox {

namespace {

constexpr std::uint32_t sourceIsUser = 2;

} // namespace

X11WindowManager::X11WindowManager(X11Connection& connection, xcb_connection_t* sender)
    : m_connection(connection)
    , m_sender(sender)
{
}

bool X11WindowManager::isPresent() const
{
    // The property outlives a window manager that crashed; the window it names does not.
    constexpr auto property = "_NET_SUPPORTING_WM_CHECK";
    const auto announced = X11Properties::number(m_connection, m_connection.root(), property);
    return announced && X11Properties::number(m_connection, *announced, property) == announced;
}

void X11WindowManager::activate(xcb_window_t window, xcb_timestamp_t time) const
{
    send(window, "_NET_ACTIVE_WINDOW", {sourceIsUser, time});
}

void X11WindowManager::activateDirectly(xcb_window_t window) const
{
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(m_sender, window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    xcb_set_input_focus(m_sender, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    xcb_flush(m_sender);
}

void X11WindowManager::send(xcb_window_t window, const char* message, const Data& data) const
{
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = m_connection.atom(message);
    std::ranges::copy(data, event.data.data32);
    xcb_send_event(m_sender, false, m_connection.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(m_sender);
}

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
