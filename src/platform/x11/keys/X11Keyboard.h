#pragma once

#include "platform/KeyEventMonitor.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include <QtCore/QObject>

#include <xcb/xcb.h>

struct xcb_xkb_get_map_reply_t;

namespace driftbox {

class X11Connection;

/// The user's current mapping of keys to symbols, which follows layout changes and remapped keys at
/// run time. Main thread only.
class X11Keyboard final : public QObject
{
    Q_OBJECT

public:
    /// A key, and the layout (group) in which it has the requested symbol; none when it has the
    /// symbol in all layouts.
    struct Key
    {
        xcb_keycode_t code;
        std::optional<std::uint8_t> group;
    };

    /// Round trip. `connection` must outlive the keyboard.
    explicit X11Keyboard(X11Connection& connection);

    /// Whether the key is a modifier: Shift, Caps Lock, AltGr, …
    [[nodiscard]] bool isModifier(xcb_keycode_t code) const;
    /// The flags that are set while the key is held.
    [[nodiscard]] ModifierFlags flagsOf(xcb_keycode_t code) const;

    /// The key that produces `symbol` without modifiers, in `preferredGroup` if possible, else in
    /// the first layout that has one.
    [[nodiscard]] std::optional<Key> keyWith(xcb_keysym_t symbol,
                                             std::uint8_t preferredGroup) const;

    /// The bits of the core modifier mask that Num Lock toggles.
    [[nodiscard]] std::uint8_t numLockMask() const { return m_numLockMask; }

Q_SIGNALS:
    void mappingChanged();

private:
    struct Mapping
    {
        std::vector<xcb_keysym_t> symbols; ///< without modifiers, one per group
        std::uint8_t modifiers = 0;        ///< bits of the core modifier mask
    };

    void selectEvents();
    void handleEvent(const xcb_generic_event_t& event);
    void reload();
    void apply(const xcb_xkb_get_map_reply_t& map);

    X11Connection& m_connection;
    std::uint8_t m_firstEvent = 0;
    bool m_isLoading = false;
    bool m_isStale = false; ///< the mapping has changed since loading started
    std::array<Mapping, 256> m_keys;
    std::uint8_t m_numLockMask = 0;
};

/// Whether a key is held according to the server's keymap.
[[nodiscard]] inline bool isDown(const xcb_query_keymap_reply_t& keymap, xcb_keycode_t code)
{
    return (keymap.keys[code / 8] >> (code % 8) & 1) != 0;
}

} // namespace driftbox
