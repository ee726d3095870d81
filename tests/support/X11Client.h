#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include <QtCore/QByteArray>
#include <QtCore/QRect>

#include <xcb/xcb.h>

namespace driftbox {

/// A plain X11 client with one window, like another process: it has its own connection and uses no
/// toolkit. It shows its window immediately and records the key events that it receives.
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
        std::uint16_t modifiers; ///< the state before the event
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
    /// Takes the focus without involving the window manager.
    void takeFocus() const;
    void quit();

    /// Whether the window, or a child of it, has the focus.
    [[nodiscard]] bool hasFocus() const;
    /// Whether the window manager announces the window as active.
    [[nodiscard]] bool isActive() const;
    [[nodiscard]] bool isViewable() const;
    /// Whether a click would currently reach the window.
    [[nodiscard]] bool isUnderPointer() const;
    /// The geometry of the window's content on the screen.
    [[nodiscard]] QRect frame() const;
    /// The key events that the window has received so far, in order.
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
