#pragma once

#include <QtCore/QPoint>
#include <QtCore/QRect>
#include <QtGui/QColor>

#include <xcb/xcb.h>

namespace driftbox {

/// Simulates keyboard and mouse input on the X server in DISPLAY. The server has processed the
/// input when a call returns.
class X11User
{
public:
    X11User();
    ~X11User();
    X11User(const X11User&) = delete;
    X11User& operator=(const X11User&) = delete;

    /// `symbol` is a keysym (XK_…) that some key has without modifiers.
    void press(xcb_keysym_t symbol) { fake(XCB_KEY_PRESS, keycodeOf(symbol)); }
    void release(xcb_keysym_t symbol) { fake(XCB_KEY_RELEASE, keycodeOf(symbol)); }
    void tap(xcb_keysym_t symbol);
    [[nodiscard]] xcb_keycode_t keycodeOf(xcb_keysym_t symbol) const;
    /// Whether the server considers the key pressed.
    [[nodiscard]] bool isDown(xcb_keysym_t symbol) const;
    /// The effective modifiers, as bits of the core modifier mask.
    [[nodiscard]] std::uint16_t modifiers() const;

    void movePointer(QPoint pixel);
    void pressButton() { fake(XCB_BUTTON_PRESS, 1); }
    void releaseButton() { fake(XCB_BUTTON_RELEASE, 1); }
    void click(QPoint pixel);

    /// The color on the screen.
    [[nodiscard]] QColor colorAt(QPoint pixel) const;
    /// The window's geometry in pixels of the whole screen. The window must exist.
    [[nodiscard]] QRect frameOf(xcb_window_t window) const;

private:
    void fake(std::uint8_t type, std::uint8_t detail, QPoint pixel = {});
    void waitForServer() const;

    xcb_connection_t* m_xcb;
    xcb_window_t m_root;
};

} // namespace driftbox
