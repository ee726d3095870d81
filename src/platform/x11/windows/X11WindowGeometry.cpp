#include "platform/x11/windows/X11WindowGeometry.h"

#include "platform/ScreenSpace.h"
#include "platform/x11/connection/QtXcb.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>

// Private: the public geometry of a window is in whole points, too coarse on a scaled screen.
#include <qpa/qplatformscreen.h>
#include <qpa/qplatformwindow.h>
#include <qpa/qwindowsysteminterface.h>

namespace driftbox::X11WindowGeometry {

namespace {

QRectF primaryScreen()
{
    const QScreen* primary = QGuiApplication::primaryScreen();
    return primary != nullptr ? QRectF(primary->geometry()) : QRectF();
}

// A screen's origin is the same in points and in pixels.
QPointF originOf(const QScreen& screen)
{
    return screen.handle()->geometry().topLeft();
}

const QScreen& screenFor(const QWindow& window, const QRectF& points)
{
    const QScreen* screen = QGuiApplication::screenAt(points.center().toPoint());
    return screen != nullptr ? *screen : *window.screen();
}

} // namespace

QRect pixels(const QWindow& window)
{
    return window.handle()->geometry();
}

QRectF frame(const QWindow& window)
{
    const QPointF origin = originOf(*window.screen());
    const qreal scale = window.devicePixelRatio();
    const QRectF known = pixels(window);
    return ScreenSpace::fromToolkit(
        {origin + (known.topLeft() - origin) / scale, known.size() / scale}, primaryScreen());
}

QRect pixelsFor(const QWindow& window, const QRectF& frame)
{
    const QRectF points = ScreenSpace::toToolkit(frame, primaryScreen());
    const QScreen& screen = screenFor(window, points);
    const QPointF origin = originOf(screen);
    const qreal scale = screen.devicePixelRatio();
    return {(origin + (points.topLeft() - origin) * scale).toPoint(),
            (points.size() * scale).toSize()};
}

void setFrame(QWindow& window, const QRectF& frame)
{
    const QRect wanted = pixelsFor(window, frame);
    const QRectF points = ScreenSpace::toToolkit(frame, primaryScreen());
    window.setGeometry({points.topLeft().toPoint(), points.size().toSize()});
    if (pixels(window) != wanted)
        window.handle()->setGeometry(wanted);
    // The toolkit would wait for the server's event, and show the window in its previous size until
    // then.
    if (!window.isVisible())
        QWindowSystemInterface::handleGeometryChange<QWindowSystemInterface::SynchronousDelivery>(
            &window, wanted);
}

void showAgain(QWindow& window, const QRectF& frame)
{
    window.handle()->setGeometry(pixelsFor(window, frame));
    xcb_map_window(QtXcb::connection(), static_cast<xcb_window_t>(window.winId()));
    xcb_flush(QtXcb::connection());
}

} // namespace driftbox::X11WindowGeometry
