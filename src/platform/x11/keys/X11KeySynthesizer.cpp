#include "platform/x11/keys/X11KeySynthesizer.h"

#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/keys/X11Keyboard.h"
#include "platform/x11/keys/Xkb.h"

#include <algorithm>
#include <memory>
#include <optional>

#include <X11/keysym.h>

namespace driftbox {

namespace {

constexpr xcb_xkb_device_spec_t keyboardDevice = XCB_XKB_ID_USE_CORE_KBD;
constexpr std::uint8_t allModifiers = 0xff;

// Key codes on every PC keyboard. Programs map a non-Latin letter at this position to the Latin
// one, which is the only option when no layout has Latin letters.
constexpr X11Keyboard::Key positionOfV = {55, std::nullopt};
constexpr X11Keyboard::Key positionOfInsert = {118, std::nullopt};

struct Chord
{
    std::vector<xcb_keycode_t> keys; ///< in the order of presses
    std::optional<std::uint8_t> group;
};

std::optional<Chord> chordOf(PasteShortcut shortcut, const X11Keyboard& keyboard,
                             std::uint8_t group)
{
    const auto modifier = [&](xcb_keysym_t left, xcb_keysym_t right) {
        const auto key = keyboard.keyWith(left, group);
        return key ? key : keyboard.keyWith(right, group);
    };
    const auto control = modifier(XK_Control_L, XK_Control_R);
    const auto shift = modifier(XK_Shift_L, XK_Shift_R);
    if (!control || !shift)
        return std::nullopt;
    const auto v = keyboard.keyWith(XK_v, group).value_or(positionOfV);
    switch (shortcut) {
    case PasteShortcut::controlV:
        return Chord{{control->code, v.code}, v.group};
    case PasteShortcut::controlShiftV:
        return Chord{{control->code, shift->code, v.code}, v.group};
    case PasteShortcut::shiftInsert: {
        const auto insert = keyboard.keyWith(XK_Insert, group).value_or(positionOfInsert);
        return Chord{{shift->code, insert.code}, insert.group};
    }
    }
    return std::nullopt;
}

} // namespace

X11KeySynthesizer::X11KeySynthesizer(X11Connection& connection, const X11Keyboard& keyboard)
    : m_connection(connection)
    , m_keyboard(keyboard)
{
}

void X11KeySynthesizer::type(PasteShortcut shortcut, Typed typed)
{
    // Replies arrive in the order of the requests.
    const auto keymap = std::make_shared<std::optional<xcb_query_keymap_reply_t>>();
    m_connection.whenReplied<xcb_query_keymap_reply_t>(
        xcb_query_keymap(m_connection.xcb()).sequence, this,
        [keymap](const xcb_query_keymap_reply_t* reply) {
            if (reply)
                *keymap = *reply;
        });
    m_connection.whenReplied<xcb_xkb_get_state_reply_t>(
        xcb_xkb_get_state(m_connection.xcb(), keyboardDevice).sequence, this,
        [this, shortcut, keymap, typed = std::move(typed)](const xcb_xkb_get_state_reply_t* state) {
            typed(*keymap && state && type(shortcut, **keymap, *state));
        });
}

bool X11KeySynthesizer::type(PasteShortcut shortcut, const xcb_query_keymap_reply_t& keymap,
                             const xcb_xkb_get_state_reply_t& state) const
{
    const auto chord = chordOf(shortcut, m_keyboard, state.lockedGroup);
    if (!chord)
        return false;

    releaseHeld(keymap, chord->keys);
    const std::uint8_t numLock = m_keyboard.numLockMask();
    const auto switched = static_cast<std::uint8_t>(allModifiers & ~numLock);
    lock(switched, 0, chord->group.value_or(state.lockedGroup));
    std::ranges::for_each(chord->keys, [this](xcb_keycode_t code) { press(code); });
    std::for_each(chord->keys.rbegin(), chord->keys.rend(),
                  [this](xcb_keycode_t code) { release(code); });
    lock(switched, state.lockedMods, state.lockedGroup);
    m_connection.flush();
    return true;
}

void X11KeySynthesizer::releaseHeld(const xcb_query_keymap_reply_t& keymap,
                                    const std::vector<xcb_keycode_t>& chord) const
{
    // A key that is already held could not be pressed again.
    for (int code = 0; code < 256; ++code) {
        const auto keycode = static_cast<xcb_keycode_t>(code);
        const bool mustBeReleased =
            m_keyboard.isModifier(keycode) || std::ranges::find(chord, keycode) != chord.end();
        if (mustBeReleased && isDown(keymap, keycode))
            release(keycode);
    }
}

void X11KeySynthesizer::lock(std::uint8_t affected, std::uint8_t modifiers,
                             std::uint8_t group) const
{
    // Latched modifiers and layouts are unlatched.
    xcb_xkb_latch_lock_state(m_connection.xcb(), keyboardDevice, affected, modifiers & affected,
                             true, group, allModifiers, true, 0);
}

void X11KeySynthesizer::press(xcb_keycode_t code) const
{
    m_connection.fakeKey(XCB_KEY_PRESS, code);
}

void X11KeySynthesizer::release(xcb_keycode_t code) const
{
    m_connection.fakeKey(XCB_KEY_RELEASE, code);
}

} // namespace driftbox
