#include "platform/x11/windows/X11RunningApplication.h"

#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/connection/X11Properties.h"
#include "platform/x11/connection/X11Reply.h"
#include "platform/x11/windows/X11WindowManager.h"

#include <cerrno>
#include <csignal>

#include <xcb/res.h>

namespace driftbox {

namespace {

// The server knows the process at the other end of the connection. The window's own property is the
// fallback: a sandboxed program sets a process id that is meaningless outside its sandbox.
pid_t processOfConnection(const X11Connection& connection, xcb_window_t window)
{
    const xcb_res_client_id_spec_t wanted = {window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const auto cookie = xcb_res_query_client_ids(connection.xcb(), 1, &wanted);
    const X11Reply<xcb_res_query_client_ids_reply_t> reply(
        xcb_res_query_client_ids_reply(connection.xcb(), cookie, nullptr));
    if (!reply)
        return 0;
    for (auto id = xcb_res_query_client_ids_ids_iterator(reply.get()); id.rem > 0;
         xcb_res_client_id_value_next(&id)) {
        if (xcb_res_client_id_value_value_length(id.data) > 0)
            return static_cast<pid_t>(*xcb_res_client_id_value_value(id.data));
    }
    return 0;
}

bool hasResourceExtension(X11Connection& connection)
{
    const auto* extension = xcb_get_extension_data(connection.xcb(), &xcb_res_id);
    return extension != nullptr && extension->present != 0;
}

// A window without the property may belong to another window that has it.
pid_t declaredProcess(X11Connection& connection, xcb_window_t window)
{
    constexpr auto property = "_NET_WM_PID";
    if (const auto process = X11Properties::number(connection, window, property))
        return static_cast<pid_t>(*process);
    for (const auto* relation : {"WM_TRANSIENT_FOR", "WM_CLIENT_LEADER"}) {
        const auto relative = X11Properties::number(connection, window, relation);
        if (!relative || *relative == window || *relative == XCB_NONE)
            continue;
        if (const auto process = X11Properties::number(connection, *relative, property))
            return static_cast<pid_t>(*process);
    }
    return 0;
}

pid_t processOf(X11Connection& connection, xcb_window_t window)
{
    const pid_t process =
        hasResourceExtension(connection) ? processOfConnection(connection, window) : 0;
    return process > 0 ? process : declaredProcess(connection, window);
}

// Two null-terminated strings: the instance and the class.
std::optional<QString> classOf(X11Connection& connection, xcb_window_t window)
{
    const auto names = X11Properties::bytes(connection, window, "WM_CLASS").split('\0');
    if (names.size() < 2 || names[1].isEmpty())
        return std::nullopt;
    return QString::fromUtf8(names[1]);
}

} // namespace

X11RunningApplication::X11RunningApplication(X11Connection& connection, xcb_window_t window)
    : m_connection(connection)
    , m_window(window)
    , m_processIdentifier(processOf(connection, window))
    , m_bundleIdentifier(classOf(connection, window))
{
}

bool X11RunningApplication::hasProcessEnded() const
{
    return m_processIdentifier > 0 && kill(m_processIdentifier, 0) != 0 && errno == ESRCH;
}

bool X11RunningApplication::isTerminated() const
{
    if (hasProcessEnded())
        return true;
    const auto cookie = xcb_get_window_attributes(m_connection.xcb(), m_window);
    const X11Reply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(m_connection.xcb(), cookie, nullptr));
    return !attributes;
}

void X11RunningApplication::activate()
{
    const X11WindowManager windowManager(m_connection, m_connection.xcb());
    if (!windowManager.isPresent()) {
        windowManager.activateDirectly(m_window);
        return;
    }
    m_connection.whenServerTimeKnown(this, [this, windowManager](xcb_timestamp_t now) {
        windowManager.activate(m_window, now);
    });
    m_connection.flush();
}

void X11RunningApplication::Asker::tell(Focus focus) const
{
    if (owner)
        answer(focus);
}

void X11RunningApplication::whenFocusKnown(QObject* owner, FocusAnswer answer)
{
    const auto cookie = xcb_get_window_attributes(m_connection.xcb(), m_window);
    m_connection.whenReplied<xcb_get_window_attributes_reply_t>(
        cookie.sequence, this,
        [this, asker = Asker{owner, std::move(answer)}](
            const xcb_get_window_attributes_reply_t* attributes) {
            if (attributes == nullptr || hasProcessEnded())
                asker.tell(Focus::gone);
            else
                askForFocus(asker);
        });
}

void X11RunningApplication::askForFocus(const Asker& asker)
{
    const auto cookie = xcb_get_input_focus(m_connection.xcb());
    m_connection.whenReplied<xcb_get_input_focus_reply_t>(
        cookie.sequence, this, [this, asker](const xcb_get_input_focus_reply_t* focus) {
            lookForOurWindow(focus ? focus->focus : XCB_NONE, asker);
        });
}

// Toolkits may set the focus to a child of their window.
void X11RunningApplication::lookForOurWindow(xcb_window_t from, const Asker& asker)
{
    if (from == m_window)
        return asker.tell(Focus::inside);
    if (from <= XCB_INPUT_FOCUS_POINTER_ROOT || from == m_connection.root())
        return asker.tell(Focus::outside);
    const auto cookie = xcb_query_tree(m_connection.xcb(), from);
    m_connection.whenReplied<xcb_query_tree_reply_t>(
        cookie.sequence, this, [this, asker](const xcb_query_tree_reply_t* tree) {
            lookForOurWindow(tree ? tree->parent : XCB_NONE, asker);
        });
}

} // namespace driftbox
