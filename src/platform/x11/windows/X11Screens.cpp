#include "platform/x11/windows/X11Screens.h"

#include "platform/ScreenSpace.h"
#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/connection/X11Properties.h"
#include "platform/x11/connection/X11Reply.h"
#include "platform/x11/windows/Strut.h"

#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

namespace driftbox {

namespace {

std::vector<Strut> strutsOf(X11Connection& connection)
{
    const auto windows = X11Properties::numbers(connection, connection.root(), "_NET_CLIENT_LIST");
    const auto partial = X11Properties::numbers(connection, windows, "_NET_WM_STRUT_PARTIAL");
    const auto simple = X11Properties::numbers(connection, windows, "_NET_WM_STRUT");
    std::vector<Strut> struts;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const auto some = strutsFrom(partial[i].empty() ? simple[i] : partial[i]);
        struts.insert(struts.end(), some.begin(), some.end());
    }
    return struts;
}

QSize desktopSize(const X11Connection& connection)
{
    const X11Reply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(
        connection.xcb(), xcb_get_geometry(connection.xcb(), connection.root()), nullptr));
    return geometry ? QSize(geometry->width, geometry->height) : QSize();
}

// The toolkit keeps a screen's top left corner in pixels and scales only its size.
QRect deviceFrameOf(const QScreen& screen)
{
    return {screen.geometry().topLeft(),
            (QSizeF(screen.geometry().size()) * screen.devicePixelRatio()).toSize()};
}

QRectF pointsWithin(const QScreen& screen, const QRect& pixels)
{
    const QPointF origin = screen.geometry().topLeft();
    const qreal scale = screen.devicePixelRatio();
    return {origin + (QPointF(pixels.topLeft()) - origin) / scale, QSizeF(pixels.size()) / scale};
}

} // namespace

X11Screens::X11Screens(X11Connection& connection, QObject* parent)
    : Screens(parent)
    , m_connection(connection)
{
}

std::vector<Screen> X11Screens::screens() const
{
    const QList<QScreen*> all = QGuiApplication::screens();
    if (all.isEmpty())
        return {};
    const QRectF primary = all.first()->geometry();
    const std::vector<Strut> struts = strutsOf(m_connection);
    const QSize desktop = desktopSize(m_connection);

    std::vector<Screen> screens;
    for (const QScreen* screen : all) {
        const QRectF frame = screen->geometry();
        const QRect pixels = deviceFrameOf(*screen);
        const QRect freePixels = withoutStruts(pixels, desktop, struts);
        QRectF visible = freePixels == pixels ? frame : pointsWithin(*screen, freePixels);
        // The window manager's work area is one rectangle for all screens, so it is usable only
        // with a single screen.
        if (all.size() == 1)
            visible &= QRectF(screen->availableGeometry());
        screens.push_back({ScreenSpace::fromToolkit(frame, primary),
                           ScreenSpace::fromToolkit(visible.isEmpty() ? frame : visible, primary),
                           pixels, screen->devicePixelRatio()});
    }
    return screens;
}

QPointF X11Screens::mouseLocation() const
{
    const QScreen* primary = QGuiApplication::primaryScreen();
    return ScreenSpace::fromToolkit(QPointF(QCursor::pos()),
                                    primary != nullptr ? QRectF(primary->geometry()) : QRectF());
}

} // namespace driftbox
