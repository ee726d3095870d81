#include "platform/x11/keys/X11KeyEventMonitor.h"

#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/connection/X11Reply.h"
#include "platform/x11/keys/X11Keyboard.h"

#include <limits>

#include <QtGui/QGuiApplication>

#include <xcb/xinput.h>

namespace driftbox {

namespace {

// Since this version raw events arrive even while another client holds a grab.
constexpr std::uint16_t wantedMajor = 2;
constexpr std::uint16_t wantedMinor = 2;

bool hasRawEvents(const X11Connection& connection)
{
    const auto cookie = xcb_input_xi_query_version(connection.xcb(), wantedMajor, wantedMinor);
    const X11Reply<xcb_input_xi_query_version_reply_t> version(
        xcb_input_xi_query_version_reply(connection.xcb(), cookie, nullptr));
    return version && std::pair(version->major_version, version->minor_version) >=
                          std::pair(wantedMajor, wantedMinor);
}

// An X server inside a Wayland session receives keys only while one of its windows has the focus.
// Newer ones identify themselves by an extension, older ones by their device names.
bool isNestedInWayland(const X11Connection& connection)
{
    constexpr QByteArrayView extensionName = "XWAYLAND";
    const X11Reply<xcb_query_extension_reply_t> extension(xcb_query_extension_reply(
        connection.xcb(),
        xcb_query_extension(connection.xcb(), static_cast<std::uint16_t>(extensionName.size()),
                            extensionName.data()),
        nullptr));
    if (extension && extension->present != 0)
        return true;
    constexpr QByteArrayView devicePrefix = "xwayland-";
    const auto cookie = xcb_input_xi_query_device(connection.xcb(), XCB_INPUT_DEVICE_ALL);
    const X11Reply<xcb_input_xi_query_device_reply_t> devices(
        xcb_input_xi_query_device_reply(connection.xcb(), cookie, nullptr));
    if (!devices)
        return false;
    for (auto device = xcb_input_xi_query_device_infos_iterator(devices.get()); device.rem > 0;
         xcb_input_xi_device_info_next(&device)) {
        const QByteArrayView name(xcb_input_xi_device_info_name(device.data),
                                  xcb_input_xi_device_info_name_length(device.data));
        if (name.startsWith(devicePrefix))
            return true;
    }
    return false;
}

} // namespace

X11KeyEventMonitor::X11KeyEventMonitor(X11Connection& connection, const X11Keyboard& keyboard)
    : m_connection(connection)
    , m_keyboard(keyboard)
    , m_pressed([&keyboard](xcb_keycode_t code) { return keyboard.flagsOf(code); })
{
    const auto* extension = xcb_get_extension_data(connection.xcb(), &xcb_input_id);
    if (extension == nullptr || extension->present == 0 || !hasRawEvents(connection))
        return;
    m_opcode = extension->major_opcode;
    m_isTrusted = !isNestedInWayland(connection);
    connect(&connection, &X11Connection::eventReceived, this, &X11KeyEventMonitor::handleEvent);
}

void X11KeyEventMonitor::requestTrust()
{
    // The X server requires no permission.
}

std::unique_ptr<MonitorToken> X11KeyEventMonitor::addMonitor(KeyEventScope scope, Handler handler)
{
    if (!m_isSelected)
        selectRawEvents(true);
    return (scope == KeyEventScope::global ? m_global : m_local).add(std::move(handler));
}

void X11KeyEventMonitor::selectRawEvents(bool selected)
{
    if (m_opcode == 0)
        return;
    struct
    {
        xcb_input_event_mask_t head = {XCB_INPUT_DEVICE_ALL_MASTER, 1};
        std::uint32_t mask = 0;
    } selection;
    if (selected)
        selection.mask =
            XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE;
    xcb_input_xi_select_events(m_connection.xcb(), m_connection.root(), 1, &selection.head);
    m_isSelected = selected;
    if (selected)
        resynchronize();
}

void X11KeyEventMonitor::resynchronize()
{
    const auto cookie = xcb_query_keymap(m_connection.xcb());
    const X11Reply<xcb_query_keymap_reply_t> keymap(
        xcb_query_keymap_reply(m_connection.xcb(), cookie, nullptr));
    if (keymap)
        applyKeymap(*keymap);
}

void X11KeyEventMonitor::applyKeymap(const xcb_query_keymap_reply_t& keymap)
{
    m_pressed.resynchronize([&](xcb_keycode_t code) { return isDown(keymap, code); },
                            [this](xcb_keycode_t code) { return m_keyboard.isModifier(code); });
}

void X11KeyEventMonitor::handleEvent(const xcb_generic_event_t& event)
{
    if ((event.response_type & 0x7f) != XCB_GE_GENERIC)
        return;
    const auto& raw = reinterpret_cast<const xcb_input_raw_key_press_event_t&>(event);
    const bool isPress = raw.event_type == XCB_INPUT_RAW_KEY_PRESS;
    const bool isRelease = raw.event_type == XCB_INPUT_RAW_KEY_RELEASE;
    if (raw.extension != m_opcode || !(isPress || isRelease) ||
        raw.detail > std::numeric_limits<xcb_keycode_t>::max())
        return;
    if (m_global.count() + m_local.count() == 0) {
        selectRawEvents(false);
        return;
    }
    ++m_eventCount;
    const EventTime time = m_clock.extended(raw.time, std::chrono::steady_clock::now());
    const auto code = static_cast<xcb_keycode_t>(raw.detail);
    if (m_connection.hasFaked(raw.full_sequence))
        trackSynthesized(isPress, raw.sourceid, code);
    else if (isPress)
        handlePress(raw.sourceid, code, time);
    else
        handleRelease(raw.sourceid, code, time);
}

void X11KeyEventMonitor::handlePress(PressedModifiers::Keyboard source, xcb_keycode_t code,
                                     EventTime time)
{
    if (!m_keyboard.isModifier(code)) {
        deliver(KeyEventKind::keyDown, time);
        return;
    }
    const bool othersWereDown = !m_pressed.isEmpty();
    if (!m_pressed.press(source, code)) {
        m_pressed.release(source, code);
        deliver(KeyEventKind::flagsChanged, time);
        m_pressed.press(source, code);
    }
    deliver(KeyEventKind::flagsChanged, time);
    if (othersWereDown)
        verifyHeldModifiers(time);
}

void X11KeyEventMonitor::handleRelease(PressedModifiers::Keyboard source, xcb_keycode_t code,
                                       EventTime time)
{
    m_pressed.release(source, code);
    if (m_keyboard.isModifier(code))
        deliver(KeyEventKind::flagsChanged, time);
}

void X11KeyEventMonitor::trackSynthesized(bool isPress, PressedModifiers::Keyboard source,
                                          xcb_keycode_t code)
{
    if (!isPress)
        m_pressed.release(source, code);
    else if (m_keyboard.isModifier(code))
        m_pressed.press(source, code);
}

void X11KeyEventMonitor::verifyHeldModifiers(EventTime time)
{
    m_connection.whenReplied<xcb_query_keymap_reply_t>(
        xcb_query_keymap(m_connection.xcb()).sequence, this,
        [this, time, eventCount = m_eventCount](const xcb_query_keymap_reply_t* keymap) {
            if (keymap == nullptr || m_eventCount != eventCount)
                return;
            const ModifierFlags previousFlags = m_pressed.flags();
            applyKeymap(*keymap);
            if (m_pressed.flags() != previousFlags)
                deliver(KeyEventKind::flagsChanged, time);
        });
}

void X11KeyEventMonitor::deliver(KeyEventKind kind, EventTime time) const
{
    const bool isOurs = QGuiApplication::focusWindow() != nullptr;
    (isOurs ? m_local : m_global).notify(KeyEvent{kind, m_pressed.flags(), time});
}

} // namespace driftbox
