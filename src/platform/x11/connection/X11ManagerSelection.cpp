#include "platform/x11/connection/X11ManagerSelection.h"

#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/connection/X11Reply.h"

#include <utility>

#include <xcb/xfixes.h>

namespace driftbox {

namespace {

QByteArray screenNumber(const X11Connection& connection)
{
    int number = 0;
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection.xcb()));
    while (screens.rem > 1 && screens.data->root != connection.root()) {
        xcb_screen_next(&screens);
        ++number;
    }
    return QByteArray::number(number);
}

} // namespace

X11ManagerSelection::X11ManagerSelection(X11Connection& connection, const QByteArray& prefix)
    : m_selection(connection.atom(prefix + screenNumber(connection)))
    , m_firstEvent(connection.firstEventOf(xcb_xfixes_id))
{
    xcb_connection_t* xcb = connection.xcb();
    connect(&connection, &X11Connection::eventReceived, this, &X11ManagerSelection::handleEvent);
    const X11Reply<xcb_xfixes_query_version_reply_t> version(xcb_xfixes_query_version_reply(
        xcb, xcb_xfixes_query_version(xcb, XCB_XFIXES_MAJOR_VERSION, XCB_XFIXES_MINOR_VERSION),
        nullptr));
    xcb_xfixes_select_selection_input(xcb, connection.root(), m_selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    const X11Reply<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(xcb, xcb_get_selection_owner(xcb, m_selection), nullptr));
    m_isOwned = owner && owner->owner != XCB_NONE;
}

void X11ManagerSelection::handleEvent(const xcb_generic_event_t& event)
{
    if (!m_firstEvent ||
        (event.response_type & 0x7f) != *m_firstEvent + XCB_XFIXES_SELECTION_NOTIFY)
        return;
    const auto& change = reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
    if (change.selection != m_selection)
        return;
    const bool owned = change.owner != XCB_NONE;
    if (std::exchange(m_isOwned, owned) != owned)
        Q_EMIT ownedChanged(owned);
}

} // namespace driftbox
