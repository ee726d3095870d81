#pragma once

#include <cstdint>

#include <QtGui/QRegion>

#include <xcb/xcb.h>

/// Sets the shape of the toolkit's windows.
namespace driftbox::X11Shape {

enum class Kind : std::uint8_t {
    drawing = 0, ///< the visible and clickable part
    input = 2,   ///< the clickable part
};

/// `points` in pixels on a screen with `scale` pixels per point, rounded outward.
[[nodiscard]] QRegion inPixels(const QRegion& points, qreal scale);

/// Limits `window` to `pixels`; an empty region removes the limit.
void set(xcb_window_t window, Kind kind, const QRegion& pixels);

/// Makes the shape of `window` empty.
void setNothing(xcb_window_t window, Kind kind);

} // namespace driftbox::X11Shape
