#include "platform/desktop/QtScreens.h"

#include "platform/ScreenSpace.h"

#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

namespace driftbox {

namespace {

qreal primaryHeight()
{
    const QScreen* primary = QGuiApplication::primaryScreen();
    return primary ? primary->geometry().height() : 0;
}

Screen described(const QScreen& screen, qreal height)
{
    const QRect geometry = screen.geometry();
    const qreal scale = screen.devicePixelRatio();
    // The toolkit scales the size of a screen and leaves its corner in device pixels.
    return {.frame = ScreenSpace::flipped(geometry, height),
            .visibleFrame = ScreenSpace::flipped(screen.availableGeometry(), height),
            .deviceFrame = QRect(geometry.topLeft(), geometry.size() * scale),
            .scale = scale};
}

} // namespace

std::vector<Screen> QtScreens::screens() const
{
    std::vector<Screen> result;
    const qreal height = primaryHeight();
    for (const QScreen* screen : QGuiApplication::screens()) { // the primary one comes first
        if (!screen->geometry().isEmpty())
            result.push_back(described(*screen, height));
    }
    return result;
}

QPointF QtScreens::mouseLocation() const
{
    return ScreenSpace::flipped(QPointF(QCursor::pos()), primaryHeight());
}

} // namespace driftbox
