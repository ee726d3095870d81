#include "platform/ScreenSpace.h"

#include <algorithm>

namespace driftbox::ScreenSpace {

QRectF flipped(const QRectF& rectangle, qreal primaryHeight)
{
    return {rectangle.x(), primaryHeight - rectangle.y() - rectangle.height(), rectangle.width(),
            rectangle.height()};
}

QPointF flipped(QPointF point, qreal primaryHeight)
{
    return {point.x(), primaryHeight - point.y()};
}

QRectF fromToolkit(const QRectF& rectangle, const QRectF& primary)
{
    return flipped(rectangle.translated(-primary.topLeft()), primary.height());
}

QPointF fromToolkit(QPointF point, const QRectF& primary)
{
    return flipped(point - primary.topLeft(), primary.height());
}

QRectF toToolkit(const QRectF& rectangle, const QRectF& primary)
{
    return flipped(rectangle, primary.height()).translated(primary.topLeft());
}

std::optional<QRectF> desktopFromDevice(const QRectF& pixels, const std::vector<Screen>& screens)
{
    const auto containsCenter = [center = pixels.center()](const Screen& screen) {
        return QRectF(screen.deviceFrame).contains(center);
    };
    const auto screen = std::ranges::find_if(screens, containsCenter);
    if (screen == screens.end())
        return std::nullopt;

    const QRectF frame = flipped(screen->frame, screens.front().frame.height());
    const QPointF offset = (pixels.topLeft() - screen->deviceFrame.topLeft()) / screen->scale;
    return QRectF(frame.topLeft() + offset, pixels.size() / screen->scale);
}

} // namespace driftbox::ScreenSpace
