#include "support/X11User.h"

#include "support/OwnedReply.h"

#include <QtCore/QtGlobal>

#include <xcb/xtest.h>

namespace driftbox {

X11User::X11User()
    : m_xcb(xcb_connect(nullptr, nullptr))
    , m_root(xcb_setup_roots_iterator(xcb_get_setup(m_xcb)).data->root)
{
}

X11User::~X11User()
{
    xcb_disconnect(m_xcb);
}

void X11User::tap(xcb_keysym_t symbol)
{
    press(symbol);
    release(symbol);
}

xcb_keycode_t X11User::keycodeOf(xcb_keysym_t symbol) const
{
    const auto* setup = xcb_get_setup(m_xcb);
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const auto mapping = owned(xcb_get_keyboard_mapping_reply(
        m_xcb, xcb_get_keyboard_mapping(m_xcb, setup->min_keycode, count), nullptr));
    const auto* symbols = xcb_get_keyboard_mapping_keysyms(mapping.get());
    for (int key = 0; key < count; ++key) {
        for (int column = 0; column < mapping->keysyms_per_keycode; column += 2) {
            if (symbols[key * mapping->keysyms_per_keycode + column] == symbol)
                return static_cast<xcb_keycode_t>(setup->min_keycode + key);
        }
    }
    qFatal("No key has the keysym %#x", symbol);
}

bool X11User::isDown(xcb_keysym_t symbol) const
{
    const auto code = keycodeOf(symbol);
    const auto keymap = owned(xcb_query_keymap_reply(m_xcb, xcb_query_keymap(m_xcb), nullptr));
    return (keymap->keys[code / 8] >> (code % 8) & 1) != 0;
}

std::uint16_t X11User::modifiers() const
{
    const auto pointer =
        owned(xcb_query_pointer_reply(m_xcb, xcb_query_pointer(m_xcb, m_root), nullptr));
    return pointer->mask & 0xff;
}

void X11User::movePointer(QPoint pixel)
{
    fake(XCB_MOTION_NOTIFY, 0, pixel);
}

void X11User::click(QPoint pixel)
{
    movePointer(pixel);
    pressButton();
    releaseButton();
}

QColor X11User::colorAt(QPoint pixel) const
{
    const auto image =
        owned(xcb_get_image_reply(m_xcb,
                                  xcb_get_image(m_xcb, XCB_IMAGE_FORMAT_Z_PIXMAP, m_root,
                                                static_cast<std::int16_t>(pixel.x()),
                                                static_cast<std::int16_t>(pixel.y()), 1, 1, ~0U),
                                  nullptr));
    if (!image)
        return {};
    const auto* blueGreenRed = xcb_get_image_data(image.get());
    return {blueGreenRed[2], blueGreenRed[1], blueGreenRed[0]};
}

QRect X11User::frameOf(xcb_window_t window) const
{
    const auto size =
        owned(xcb_get_geometry_reply(m_xcb, xcb_get_geometry(m_xcb, window), nullptr));
    const auto origin = owned(xcb_translate_coordinates_reply(
        m_xcb, xcb_translate_coordinates(m_xcb, window, m_root, 0, 0), nullptr));
    return {origin->dst_x, origin->dst_y, size->width, size->height};
}

void X11User::fake(std::uint8_t type, std::uint8_t detail, QPoint pixel)
{
    xcb_test_fake_input(m_xcb, type, detail, XCB_CURRENT_TIME, m_root,
                        static_cast<std::int16_t>(pixel.x()), static_cast<std::int16_t>(pixel.y()),
                        0);
    waitForServer();
}

void X11User::waitForServer() const
{
    (void)owned(xcb_get_input_focus_reply(m_xcb, xcb_get_input_focus(m_xcb), nullptr));
}

} // namespace driftbox
