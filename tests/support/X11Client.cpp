#include "support/X11Client.h"

#include "support/OwnedReply.h"

#include <utility>

namespace driftbox {

namespace {

constexpr std::uint32_t inputHint = 1; // the flag in WM_HINTS and its value
constexpr std::uint32_t userPositionAndSize = 3;

} // namespace

X11Client::X11Client()
    : X11Client(Settings())
{
}

X11Client::X11Client(const Settings& settings)
    : m_xcb(xcb_connect(nullptr, nullptr))
{
    const auto* screen = xcb_setup_roots_iterator(xcb_get_setup(m_xcb)).data;
    m_root = screen->root;
    m_window = xcb_generate_id(m_xcb);
    // Button events that a client does not select propagate to the window manager's frame, which
    // would handle them again.
    const std::uint32_t values[] = {
        screen->white_pixel, XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE |
                                 XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE};
    const QRect frame = settings.frame;
    xcb_create_window(m_xcb, XCB_COPY_FROM_PARENT, m_window, m_root,
                      static_cast<std::int16_t>(frame.x()), static_cast<std::int16_t>(frame.y()),
                      static_cast<std::uint16_t>(frame.width()),
                      static_cast<std::uint16_t>(frame.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      screen->root_visual, XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
    if (!settings.windowClass.isEmpty()) {
        const QByteArray names =
            settings.windowClass.toLower() + '\0' + settings.windowClass + '\0';
        xcb_change_property(m_xcb, XCB_PROP_MODE_REPLACE, m_window, XCB_ATOM_WM_CLASS,
                            XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(names.size()),
                            names.constData());
    }
    setNumbers("WM_HINTS", XCB_ATOM_WM_HINTS,
               {inputHint, settings.acceptsFocus ? inputHint : 0, 0, 0, 0, 0, 0, 0, 0});
    std::vector<std::uint32_t> sizeHints(18);
    sizeHints[0] = userPositionAndSize;
    setNumbers("WM_NORMAL_HINTS", XCB_ATOM_WM_SIZE_HINTS, sizeHints);
    if (settings.claimedProcess)
        setNumbers("_NET_WM_PID", XCB_ATOM_CARDINAL, {*settings.claimedProcess});
    map();
}

X11Client::~X11Client()
{
    quit();
}

void X11Client::quit()
{
    if (auto* xcb = std::exchange(m_xcb, nullptr))
        xcb_disconnect(xcb);
}

void X11Client::map() const
{
    xcb_map_window(m_xcb, m_window);
    xcb_flush(m_xcb);
}

xcb_atom_t X11Client::atom(const QByteArray& name) const
{
    const auto cookie =
        xcb_intern_atom(m_xcb, false, static_cast<std::uint16_t>(name.size()), name.constData());
    return owned(xcb_intern_atom_reply(m_xcb, cookie, nullptr))->atom;
}

void X11Client::setNumbers(const char* property, xcb_atom_t type,
                           const std::vector<std::uint32_t>& numbers) const
{
    xcb_change_property(m_xcb, XCB_PROP_MODE_REPLACE, m_window, atom(property), type, 32,
                        static_cast<std::uint32_t>(numbers.size()), numbers.data());
    xcb_flush(m_xcb);
}

void X11Client::takeFocus() const
{
    xcb_set_input_focus(m_xcb, XCB_INPUT_FOCUS_PARENT, m_window, XCB_CURRENT_TIME);
    xcb_flush(m_xcb);
}

bool X11Client::hasFocus() const
{
    const auto focus = owned(xcb_get_input_focus_reply(m_xcb, xcb_get_input_focus(m_xcb), nullptr));
    xcb_window_t window = focus->focus;
    while (window > XCB_INPUT_FOCUS_POINTER_ROOT && window != m_window) {
        const auto tree =
            owned(xcb_query_tree_reply(m_xcb, xcb_query_tree(m_xcb, window), nullptr));
        window = tree ? tree->parent : XCB_NONE;
    }
    return window == m_window;
}

bool X11Client::isActive() const
{
    const auto cookie =
        xcb_get_property(m_xcb, false, m_root, atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW, 0, 1);
    const auto active = owned(xcb_get_property_reply(m_xcb, cookie, nullptr));
    return active && xcb_get_property_value_length(active.get()) == sizeof(xcb_window_t) &&
           *static_cast<const xcb_window_t*>(xcb_get_property_value(active.get())) == m_window;
}

bool X11Client::isUnderPointer() const
{
    xcb_window_t under = m_root;
    while (under != XCB_NONE && under != m_window) {
        const auto pointer =
            owned(xcb_query_pointer_reply(m_xcb, xcb_query_pointer(m_xcb, under), nullptr));
        under = pointer ? pointer->child : xcb_window_t(XCB_NONE);
    }
    return under == m_window;
}

bool X11Client::isViewable() const
{
    const auto attributes = owned(xcb_get_window_attributes_reply(
        m_xcb, xcb_get_window_attributes(m_xcb, m_window), nullptr));
    return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

QRect X11Client::frame() const
{
    const auto size =
        owned(xcb_get_geometry_reply(m_xcb, xcb_get_geometry(m_xcb, m_window), nullptr));
    const auto origin = owned(xcb_translate_coordinates_reply(
        m_xcb, xcb_translate_coordinates(m_xcb, m_window, m_root, 0, 0), nullptr));
    return {origin->dst_x, origin->dst_y, size->width, size->height};
}

const std::vector<X11Client::Key>& X11Client::keys()
{
    // The reply arrives after all events that were sent before.
    (void)owned(xcb_get_input_focus_reply(m_xcb, xcb_get_input_focus(m_xcb), nullptr));
    while (const auto event = owned(xcb_poll_for_event(m_xcb))) {
        const auto type = event->response_type & 0x7f;
        if (type != XCB_KEY_PRESS && type != XCB_KEY_RELEASE)
            continue;
        const auto& key = reinterpret_cast<const xcb_key_press_event_t&>(*event);
        m_keys.push_back({type == XCB_KEY_PRESS, key.detail,
                          static_cast<std::uint16_t>(key.state & 0xff), key.state >> 13 & 3});
    }
    return m_keys;
}

void X11Client::forgetKeys()
{
    (void)keys();
    m_keys.clear();
}

} // namespace driftbox
