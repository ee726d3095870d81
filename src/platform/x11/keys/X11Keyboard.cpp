#include "platform/x11/keys/X11Keyboard.h"

#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/connection/X11Reply.h"
#include "platform/x11/keys/Xkb.h"

#include <algorithm>
#include <utility>

#include <X11/keysym.h>

#include <QtCore/QLoggingCategory>

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(x11KeyboardLog, "X11Keyboard")

constexpr xcb_xkb_device_spec_t coreKeyboard = XCB_XKB_ID_USE_CORE_KBD;
constexpr std::uint16_t mapParts = XCB_XKB_MAP_PART_KEY_SYMS | XCB_XKB_MAP_PART_MODIFIER_MAP;
constexpr std::uint8_t groupCountMask = 0x0f;

xcb_xkb_get_map_cookie_t requestMap(const X11Connection& connection)
{
    return xcb_xkb_get_map(connection.xcb(), coreKeyboard, mapParts, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
                           0, 0, 0, 0, 0, 0);
}

ModifierFlags flagsOfSymbol(xcb_keysym_t symbol)
{
    switch (symbol) {
    case XK_Shift_L:
    case XK_Shift_R:
        return ModifierFlag::shift;
    case XK_Control_L:
    case XK_Control_R:
        return ModifierFlag::control;
    case XK_Alt_L:
    case XK_Alt_R:
    case XK_Meta_L:
    case XK_Meta_R:
        return ModifierFlag::option;
    case XK_Super_L:
    case XK_Super_R:
        return ModifierFlag::command;
    default:
        return 0;
    }
}

bool isModifierSymbol(xcb_keysym_t symbol)
{
    return (symbol >= XK_Shift_L && symbol <= XK_Hyper_R) ||
           (symbol >= XK_ISO_Lock && symbol <= XK_ISO_Level5_Lock) || symbol == XK_Mode_switch ||
           symbol == XK_Num_Lock;
}

} // namespace

X11Keyboard::X11Keyboard(X11Connection& connection)
    : m_connection(connection)
{
    const auto firstEvent = connection.firstEventOf(xcb_xkb_id);
    if (!firstEvent) {
        qCCritical(x11KeyboardLog).noquote() << "The X server has no keyboard extension";
        return;
    }
    m_firstEvent = *firstEvent;
    selectEvents();
    connect(&connection, &X11Connection::eventReceived, this, &X11Keyboard::handleEvent);
    const auto cookie = requestMap(connection);
    const X11Reply<xcb_xkb_get_map_reply_t> map(
        xcb_xkb_get_map_reply(connection.xcb(), cookie, nullptr));
    if (map)
        apply(*map);
}

void X11Keyboard::selectEvents()
{
    xcb_connection_t* xcb = m_connection.xcb();
    const auto cookie = xcb_xkb_use_extension(xcb, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION);
    const X11Reply<xcb_xkb_use_extension_reply_t> reply(
        xcb_xkb_use_extension_reply(xcb, cookie, nullptr));
    constexpr std::uint16_t events =
        XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    xcb_xkb_select_events(xcb, coreKeyboard, events, 0, events, mapParts, mapParts, nullptr);
}

void X11Keyboard::handleEvent(const xcb_generic_event_t& event)
{
    // All events of the extension share one number; the kind is in the next byte.
    if ((event.response_type & 0x7f) != m_firstEvent)
        return;
    if (event.pad0 == XCB_XKB_MAP_NOTIFY || event.pad0 == XCB_XKB_NEW_KEYBOARD_NOTIFY)
        reload();
}

void X11Keyboard::reload()
{
    if (std::exchange(m_isLoading, true)) {
        m_isStale = true;
        return;
    }
    m_connection.whenReplied<xcb_xkb_get_map_reply_t>(requestMap(m_connection).sequence, this,
                                                      [this](const xcb_xkb_get_map_reply_t* map) {
                                                          m_isLoading = false;
                                                          if (std::exchange(m_isStale, false))
                                                              return reload();
                                                          if (map == nullptr)
                                                              return;
                                                          apply(*map);
                                                          Q_EMIT mappingChanged();
                                                      });
}

void X11Keyboard::apply(const xcb_xkb_get_map_reply_t& map)
{
    m_keys = {};
    m_numLockMask = 0;
    xcb_xkb_get_map_map_t parts;
    xcb_xkb_get_map_map_unpack(xcb_xkb_get_map_map(&map), map.nTypes, map.nKeySyms, map.nKeyActions,
                               map.totalActions, map.totalKeyBehaviors, map.virtualMods,
                               map.totalKeyExplicit, map.totalModMapKeys, map.totalVModMapKeys,
                               map.present, &parts);

    std::size_t code = map.firstKeySym;
    for (auto keys = xcb_xkb_get_map_map_syms_rtrn_iterator(&map, &parts);
         keys.rem > 0 && code < m_keys.size(); xcb_xkb_key_sym_map_next(&keys), ++code) {
        const xcb_keysym_t* symbols = xcb_xkb_key_sym_map_syms(keys.data);
        const int groups = keys.data->groupInfo & groupCountMask;
        for (int group = 0; group < groups && (group + 1) * keys.data->width <= keys.data->nSyms;
             ++group)
            m_keys[code].symbols.push_back(symbols[std::ptrdiff_t(group) * keys.data->width]);
    }

    for (auto keys = xcb_xkb_get_map_map_modmap_rtrn_iterator(&map, &parts); keys.rem > 0;
         xcb_xkb_key_mod_map_next(&keys)) {
        Mapping& key = m_keys[keys.data->keycode];
        key.modifiers = keys.data->mods;
        if (std::ranges::find(key.symbols, xcb_keysym_t(XK_Num_Lock)) != key.symbols.end())
            m_numLockMask |= keys.data->mods;
    }
}

bool X11Keyboard::isModifier(xcb_keycode_t code) const
{
    const auto& symbols = m_keys[code].symbols;
    return flagsOf(code) != 0 || (!symbols.empty() && isModifierSymbol(symbols.front()));
}

ModifierFlags X11Keyboard::flagsOf(xcb_keycode_t code) const
{
    const Mapping& key = m_keys[code];
    ModifierFlags flags = key.symbols.empty() ? 0 : flagsOfSymbol(key.symbols.front());
    if ((key.modifiers & XCB_MOD_MASK_SHIFT) != 0)
        flags |= ModifierFlag::shift;
    if ((key.modifiers & XCB_MOD_MASK_CONTROL) != 0)
        flags |= ModifierFlag::control;
    return flags;
}

std::optional<X11Keyboard::Key> X11Keyboard::keyWith(xcb_keysym_t symbol,
                                                     std::uint8_t preferredGroup) const
{
    std::optional<Key> best;
    for (std::size_t code = 0; code < m_keys.size(); ++code) {
        const auto& symbols = m_keys[code].symbols;
        for (std::size_t group = 0; group < symbols.size(); ++group) {
            if (symbols[group] != symbol)
                continue;
            Key key{static_cast<xcb_keycode_t>(code), static_cast<std::uint8_t>(group)};
            if (symbols.size() == 1)
                key.group.reset();
            if (!key.group || *key.group == preferredGroup)
                return key;
            if (!best || *key.group < *best->group)
                best = key;
        }
    }
    return best;
}

} // namespace driftbox
