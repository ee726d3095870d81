#include "platform/x11/windows/X11Workspace.h"

#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/connection/X11Properties.h"
#include "platform/x11/connection/X11Reply.h"
#include "platform/x11/windows/X11FloatingSurface.h"
#include "platform/x11/windows/X11RunningApplication.h"

#include <algorithm>

#include <QtGui/QGuiApplication>
#include <QtGui/QWindow>

namespace driftbox {

namespace {

constexpr auto activeWindowName = "_NET_ACTIVE_WINDOW";

bool isOurFloatingWindow(xcb_window_t window)
{
    return std::ranges::any_of(QGuiApplication::allWindows(), [window](const QWindow* ours) {
        return ours->handle() != nullptr && ours->winId() == window && isFloating(*ours);
    });
}

xcb_window_t windowUnderPointer(const X11Connection& connection)
{
    const auto cookie = xcb_query_pointer(connection.xcb(), connection.root());
    const X11Reply<xcb_query_pointer_reply_t> pointer(
        xcb_query_pointer_reply(connection.xcb(), cookie, nullptr));
    return pointer ? pointer->child : XCB_NONE;
}

xcb_window_t parentOf(const X11Connection& connection, xcb_window_t window)
{
    const auto cookie = xcb_query_tree(connection.xcb(), window);
    const X11Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection.xcb(), cookie, nullptr));
    return tree ? tree->parent : XCB_NONE;
}

} // namespace

X11Workspace::X11Workspace(X11Connection& connection)
    : m_connection(connection)
    , m_windowManager(connection, connection.xcb())
    , m_activeWindowProperty(connection.atom(activeWindowName))
{
    addEvents(connection, connection.root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    connect(&connection, &X11Connection::eventReceived, this, &X11Workspace::handleEvent);
    (void)frontmostWindow();
}

void X11Workspace::handleEvent(const xcb_generic_event_t& event)
{
    if ((event.response_type & 0x7f) != XCB_PROPERTY_NOTIFY)
        return;
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (change.window != m_connection.root() || change.atom != m_activeWindowProperty)
        return;
    const auto cookie = xcb_get_property(m_connection.xcb(), false, m_connection.root(),
                                         m_activeWindowProperty, XCB_ATOM_WINDOW, 0, 1);
    m_connection.whenReplied<xcb_get_property_reply_t>(
        cookie.sequence, this, [this](const xcb_get_property_reply_t* property) {
            if (property == nullptr || property->value_len == 0)
                return;
            const auto active = *static_cast<const xcb_window_t*>(xcb_get_property_value(property));
            if (active != XCB_NONE && !isOurFloatingWindow(active))
                m_lastActive = active;
        });
}

std::shared_ptr<RunningApplication> X11Workspace::frontmostApplication() const
{
    const xcb_window_t window = frontmostWindow();
    if (window == XCB_NONE)
        return nullptr;
    auto application = std::make_shared<X11RunningApplication>(m_connection, window);
    return application->isTerminated() ? nullptr : application;
}

xcb_window_t X11Workspace::frontmostWindow() const
{
    const xcb_window_t active =
        m_windowManager.isPresent()
            ? X11Properties::number(m_connection, m_connection.root(), activeWindowName)
                  .value_or(XCB_NONE)
            : windowWithKeyboard();
    if (isOurFloatingWindow(active))
        return m_lastActive;
    if (active != XCB_NONE)
        m_lastActive = active;
    return active;
}

// Toolkits may set the focus to a child window; the application's window is the one with a class.
xcb_window_t X11Workspace::windowWithKeyboard() const
{
    const auto cookie = xcb_get_input_focus(m_connection.xcb());
    const X11Reply<xcb_get_input_focus_reply_t> focus(
        xcb_get_input_focus_reply(m_connection.xcb(), cookie, nullptr));
    xcb_window_t window = focus ? focus->focus : XCB_NONE;
    if (window == XCB_INPUT_FOCUS_POINTER_ROOT)
        window = windowUnderPointer(m_connection);
    while (window != XCB_NONE && window != m_connection.root()) {
        if (!X11Properties::bytes(m_connection, window, "WM_CLASS").isEmpty())
            return window;
        window = parentOf(m_connection, window);
    }
    return XCB_NONE;
}

} // namespace driftbox
