#pragma once

#include "platform/selection/PasteShortcuts.h"

#include <cstdint>
#include <vector>

#include <xcb/xcb.h>

namespace driftbox {

class X11Connection;
class X11Keyboard;

/// Types a shortcut, alone, into the window that has the keyboard. Modifiers that are held are let
/// go first and stay so until the user presses them again; locked ones and the layout are as before
/// afterwards.
class X11KeySynthesizer
{
public:
    /// Both must outlive the typist.
    X11KeySynthesizer(X11Connection& connection, const X11Keyboard& keyboard);

    /// Round trip. Returns whether the keyboard has the keys that it takes.
    [[nodiscard]] bool type(PasteShortcut shortcut) const;

private:
    void press(xcb_keycode_t code) const;
    void release(xcb_keycode_t code) const;
    void releaseHeld(const xcb_query_keymap_reply_t& keymap,
                     const std::vector<xcb_keycode_t>& chord) const;
    void lock(std::uint8_t affected, std::uint8_t modifiers, std::uint8_t group) const;

    X11Connection& m_connection;
    const X11Keyboard& m_keyboard;
};

} // namespace driftbox
