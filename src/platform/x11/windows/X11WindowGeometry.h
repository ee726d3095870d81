#pragma once

#include <QtCore/QRectF>

class QWindow;

/// Pixel-exact geometry of toolkit windows: the toolkit itself uses whole points, which are several
/// pixels apart on screens with a larger scale. Windows must have been created.
namespace driftbox::X11WindowGeometry {

/// The geometry in pixels, as last received by the toolkit.
[[nodiscard]] QRect pixels(const QWindow& window);
/// The same in screen space.
[[nodiscard]] QRectF frame(const QWindow& window);

/// The pixels of a frame in screen space, by the scale of the screen that contains its center.
[[nodiscard]] QRect pixelsFor(const QWindow& window, const QRectF& frame);

void setFrame(QWindow& window, const QRectF& frame);

/// Maps a window again that was shown at `frame` while the window manager was terminating, which
/// may have swallowed the first request.
void showAgain(QWindow& window, const QRectF& frame);

} // namespace driftbox::X11WindowGeometry
