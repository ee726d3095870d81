#pragma once

#include <cstdint>

#include <QtGui/QRegion>

#include <xcb/xcb.h>

/// The part of a window that exists, for one of the toolkit's windows.
namespace driftbox::X11Shape {

enum class Kind : std::uint8_t {
    drawing = 0, ///< what is drawn and can be clicked
    input = 2,   ///< what can be clicked
};

/// `points` on a screen with `scale` pixels a point, no pixel less.
[[nodiscard]] QRegion inPixels(const QRegion& points, qreal scale);

/// Limits `window` to `pixels`; an empty region takes the limit away.
void set(xcb_window_t window, Kind kind, const QRegion& pixels);

/// Leaves nothing of `window`.
void setNothing(xcb_window_t window, Kind kind);

} // namespace driftbox::X11Shape
