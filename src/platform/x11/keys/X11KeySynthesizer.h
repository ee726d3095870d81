#pragma once

#include "platform/selection/PasteShortcuts.h"

#include <cstdint>
#include <functional>
#include <vector>

#include <QtCore/QObject>

#include <xcb/xcb.h>

struct xcb_xkb_get_state_reply_t;

namespace driftbox {

class X11Connection;
class X11Keyboard;

/// Types a shortcut into the window that has the keyboard focus. Held modifiers are released first
/// and stay released until the user presses them again; locked modifiers and the layout are
/// restored afterwards. Main thread only; never blocks.
class X11KeySynthesizer final : public QObject
{
public:
    /// Both must outlive the synthesizer.
    X11KeySynthesizer(X11Connection& connection, const X11Keyboard& keyboard);

    /// Reports whether the keys were typed: the keyboard may lack one of them. Not called once this
    /// has been destroyed.
    using Typed = std::function<void(bool isTyped)>;

    /// Types once the server has reported which keys are held.
    void type(PasteShortcut shortcut, Typed typed);

private:
    [[nodiscard]] bool type(PasteShortcut shortcut, const xcb_query_keymap_reply_t& keymap,
                            const xcb_xkb_get_state_reply_t& state) const;
    void press(xcb_keycode_t code) const;
    void release(xcb_keycode_t code) const;
    void releaseHeld(const xcb_query_keymap_reply_t& keymap,
                     const std::vector<xcb_keycode_t>& chord) const;
    void lock(std::uint8_t affected, std::uint8_t modifiers, std::uint8_t group) const;

    X11Connection& m_connection;
    const X11Keyboard& m_keyboard;
};

} // namespace driftbox
