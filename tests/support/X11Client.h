#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include <QtCore/QByteArray>
#include <QtCore/QRect>

#include <xcb/xcb.h>

namespace driftbox {

/// A plain program with one window, as another process would have it: it has a connection of its
/// own and knows no toolkit. It shows its window at once and remembers the keys that reach it.
class X11Client
{
public:
    struct Settings
    {
        QByteArray windowClass = "Plainclient";
        QRect frame = {40, 60, 300, 200};
        std::optional<std::uint32_t> claimedProcess = std::nullopt; ///< _NET_WM_PID
        bool acceptsFocus = true;
    };
    struct Key
    {
        bool isPress;
        xcb_keycode_t code;
        std::uint16_t modifiers; ///< before the event
        int group;
        bool operator==(const Key&) const = default;
    };

    X11Client();
    explicit X11Client(const Settings& settings);
    ~X11Client();
    X11Client(const X11Client&) = delete;
    X11Client& operator=(const X11Client&) = delete;

    [[nodiscard]] xcb_connection_t* xcb() const { return m_xcb; }
    [[nodiscard]] xcb_window_t root() const { return m_root; }
    [[nodiscard]] xcb_window_t window() const { return m_window; }

    void map() const;
    void setNumbers(const char* property, xcb_atom_t type,
                    const std::vector<std::uint32_t>& numbers) const;
    /// Takes the keyboard without asking a window manager.
    void takeFocus() const;
    void quit();

    /// Whether the window, or a child of it, has the keyboard.
    [[nodiscard]] bool hasFocus() const;
    /// Whether the window manager knows that the window has it.
    [[nodiscard]] bool isActive() const;
    [[nodiscard]] bool isViewable() const;
    /// Whether a click would reach the window now.
    [[nodiscard]] bool isUnderPointer() const;
    /// Where the window's inside is on the screen.
    [[nodiscard]] QRect frame() const;
    /// The keys that have reached the window until now, in order.
    [[nodiscard]] const std::vector<Key>& keys();
    void forgetKeys();

    [[nodiscard]] xcb_atom_t atom(const QByteArray& name) const;

private:
    xcb_connection_t* m_xcb;
    xcb_window_t m_root = XCB_NONE;
    xcb_window_t m_window = XCB_NONE;
    std::vector<Key> m_keys;
};

} // namespace driftbox
