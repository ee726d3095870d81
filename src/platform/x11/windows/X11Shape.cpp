#include "platform/x11/windows/X11Shape.h"

#include "platform/x11/connection/QtXcb.h"

#include <vector>

#include <xcb/shape.h>

namespace driftbox::X11Shape {

QRegion inPixels(const QRegion& points, qreal scale)
{
    QRegion pixels;
    for (const QRect& rectangle : points) {
        const QRectF scaled(QPointF(rectangle.topLeft()) * scale, QSizeF(rectangle.size()) * scale);
        pixels += scaled.toAlignedRect();
    }
    return pixels;
}

void set(xcb_window_t window, Kind kind, const QRegion& pixels)
{
    xcb_connection_t* xcb = QtXcb::connection();
    const auto shapeKind = static_cast<xcb_shape_kind_t>(kind);
    if (pixels.isEmpty()) {
        xcb_shape_mask(xcb, XCB_SHAPE_SO_SET, shapeKind, window, 0, 0, XCB_NONE);
    } else {
        std::vector<xcb_rectangle_t> rectangles;
        for (const QRect& rectangle : pixels)
            rectangles.push_back({static_cast<std::int16_t>(rectangle.x()),
                                  static_cast<std::int16_t>(rectangle.y()),
                                  static_cast<std::uint16_t>(rectangle.width()),
                                  static_cast<std::uint16_t>(rectangle.height())});
        xcb_shape_rectangles(xcb, XCB_SHAPE_SO_SET, shapeKind, XCB_CLIP_ORDERING_UNSORTED, window,
                             0, 0, static_cast<std::uint32_t>(rectangles.size()),
                             rectangles.data());
    }
    xcb_flush(xcb);
}

void setNothing(xcb_window_t window, Kind kind)
{
    xcb_connection_t* xcb = QtXcb::connection();
    xcb_shape_rectangles(xcb, XCB_SHAPE_SO_SET, static_cast<xcb_shape_kind_t>(kind),
                         XCB_CLIP_ORDERING_UNSORTED, window, 0, 0, 0, nullptr);
    xcb_flush(xcb);
}

} // namespace driftbox::X11Shape
