#include "platform/x11/selection/ClipboardHandover.h"

#include "platform/x11/connection/X11Connection.h"

namespace driftbox {

ClipboardHandover::ClipboardHandover(X11Connection& connection, xcb_window_t owner)
    : m_connection(connection)
    , m_owner(owner)
    , m_requestor(connection.createHiddenWindow(XCB_EVENT_MASK_NO_EVENT))
    , m_clipboard(connection.atom("CLIPBOARD"))
    , m_manager(connection.atom("CLIPBOARD_MANAGER"))
    , m_saveTargets(connection.atom("SAVE_TARGETS"))
{
    connect(&connection, &X11Connection::eventReceived, this, &ClipboardHandover::handleEvent);
    connect(&connection, &X11Connection::closed, this, &ClipboardHandover::finished);
    connection.whenServerTimeKnown(this, [this](xcb_timestamp_t time) { requestOwner(time); });
    connection.flush();
}

ClipboardHandover::~ClipboardHandover()
{
    xcb_destroy_window(m_connection.xcb(), m_requestor);
}

void ClipboardHandover::requestOwner(xcb_timestamp_t time)
{
    m_connection.whenReplied<xcb_get_selection_owner_reply_t>(
        xcb_get_selection_owner(m_connection.xcb(), m_clipboard).sequence, this,
        [this, time](const xcb_get_selection_owner_reply_t* reply) {
            if (reply != nullptr && reply->owner == m_owner)
                requestSaving(time);
            else
                Q_EMIT finished();
        });
}

// Without a list of targets the manager saves all of them. Without a manager the server refuses the
// request itself.
void ClipboardHandover::requestSaving(xcb_timestamp_t time)
{
    xcb_convert_selection(m_connection.xcb(), m_requestor, m_manager, m_saveTargets, m_saveTargets,
                          time);
}

void ClipboardHandover::handleEvent(const xcb_generic_event_t& event)
{
    if ((event.response_type & 0x7f) != XCB_SELECTION_NOTIFY)
        return;
    const auto& answer = reinterpret_cast<const xcb_selection_notify_event_t&>(event);
    if (answer.requestor == m_requestor && answer.selection == m_manager &&
        answer.target == m_saveTargets)
        Q_EMIT finished();
}

} // namespace driftbox
