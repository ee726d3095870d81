#include "platform/x11/X11Compositing.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Reply.h"

#include <utility>

#include <xcb/xfixes.h>

namespace driftbox {

namespace {

// Compositing managers own the selection of the screen they blend.
QByteArray selectionName(const X11Connection& connection)
{
    int number = 0;
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection.xcb()));
    while (screens.rem > 1 && screens.data->root != connection.root()) {
        xcb_screen_next(&screens);
        ++number;
    }
    return "_NET_WM_CM_S" + QByteArray::number(number);
}

} // namespace

X11Compositing::X11Compositing(X11Connection& connection)
    : m_selection(connection.atom(selectionName(connection)))
    , m_firstEvent(connection.firstEventOf(xcb_xfixes_id))
{
    xcb_connection_t* xcb = connection.xcb();
    connect(&connection, &X11Connection::eventReceived, this, &X11Compositing::handleEvent);
    const X11Reply<xcb_xfixes_query_version_reply_t> version(xcb_xfixes_query_version_reply(
        xcb, xcb_xfixes_query_version(xcb, XCB_XFIXES_MAJOR_VERSION, XCB_XFIXES_MINOR_VERSION),
        nullptr));
    xcb_xfixes_select_selection_input(xcb, connection.root(), m_selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    const X11Reply<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(xcb, xcb_get_selection_owner(xcb, m_selection), nullptr));
    m_isActive = owner && owner->owner != XCB_NONE;
}

void X11Compositing::handleEvent(const xcb_generic_event_t& event)
{
    if (!m_firstEvent ||
        (event.response_type & 0x7f) != *m_firstEvent + XCB_XFIXES_SELECTION_NOTIFY)
        return;
    const auto& change = reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
    if (change.selection != m_selection)
        return;
    const bool active = change.owner != XCB_NONE;
    if (std::exchange(m_isActive, active) != active)
        Q_EMIT changed(active);
}

} // namespace driftbox
