#include "platform/ScreenGeometry.h"

#include <algorithm>

namespace driftbox::ScreenGeometry {

const Screen* screenContaining(QPointF point, const std::vector<Screen>& screens)
{
    // y points up: the topmost row of a screen lies at bottom(), the maximum y of its frame.
    const auto containsPoint = [point](const Screen& screen) {
        const QRectF& frame = screen.frame;
        return point.x() >= frame.left() && point.x() < frame.right() && point.y() > frame.top() &&
               point.y() <= frame.bottom();
    };
    const auto found = std::ranges::find_if(screens, containsPoint);
    return found == screens.end() ? nullptr : &*found;
}

QPointF centeredOrigin(QSizeF size, QPointF mouse, const std::vector<Screen>& screens)
{
    if (screens.empty())
        qFatal("There is no screen to show the panel on");
    const Screen* underMouse = screenContaining(mouse, screens);
    const QRectF& visibleFrame = (underMouse ? *underMouse : screens.front()).visibleFrame;
    return visibleFrame.center() - QPointF(size.width() * 0.5, size.height() * 0.5);
}

} // namespace driftbox::ScreenGeometry
