#pragma once

#include <QtCore/QRectF>

class QWindow;

/// The places of toolkit windows to the pixel: the toolkit itself knows them in whole points only,
/// which on screens of a larger scale are several pixels apart. Windows must have been created.
namespace driftbox::X11WindowGeometry {

/// In pixels, as the toolkit last heard of it.
[[nodiscard]] QRect pixels(const QWindow& window);
/// The same in screen space.
[[nodiscard]] QRectF frame(const QWindow& window);

/// The pixels for a frame in screen space, by the scale of the screen that holds its center.
[[nodiscard]] QRect pixelsFor(const QWindow& window, const QRectF& frame);

void setFrame(QWindow& window, const QRectF& frame);

/// Asks once more for a window that was shown at `frame` while the window manager was ending, which
/// may have taken the first request along.
void showAgain(QWindow& window, const QRectF& frame);

} // namespace driftbox::X11WindowGeometry
