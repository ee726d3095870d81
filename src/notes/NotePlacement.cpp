#include "notes/NotePlacement.h"

#include <algorithm>
#include <cmath>

namespace driftbox::NotePlacement {

namespace {

constexpr QSizeF plainSize{240, 200};
constexpr double minImageWidth = 300;
constexpr double maxImageWidth = 520;
constexpr double controlsHeight = 96; // above and below an image
constexpr double margin = 40;
constexpr double step = 26;
constexpr qint64 stepCount = 8;

Screen mainScreen(const std::vector<Screen>& screens)
{
    return screens.empty() ? Screen() : screens.front();
}

QSizeF sizeFor(const std::optional<QSizeF>& imageSize)
{
    if (!imageSize)
        return plainSize;
    const double aspect = imageSize->width() / std::max(imageSize->height(), 1.0);
    const double width = std::clamp(imageSize->width(), minImageWidth, maxImageWidth);
    return {width, width / aspect + controlsHeight};
}

// The maximum size that zooming can reach, or all screens together, which dragging can cover.
QSizeF maxWindowSize(const std::vector<Screen>& screens)
{
    QRectF desktop;
    for (const Screen& screen : screens)
        desktop |= screen.frame;
    return desktop.size().expandedTo(maxZoomedWindow);
}

} // namespace

NoteFrame cascadeFrame(qint64 count, const std::optional<QSizeF>& imageSize,
                       const std::vector<Screen>& screens)
{
    const QRectF visible = mainScreen(screens).visibleFrame;
    const QSizeF size = sizeFor(imageSize);
    const double offset = margin + step * static_cast<double>(count % stepCount);
    return {visible.x() + visible.width() - size.width() - offset,
            visible.y() + visible.height() - size.height() - offset, size.width(), size.height()};
}

bool isVisible(const NoteFrame& frame, const std::vector<Screen>& screens)
{
    return std::ranges::any_of(screens, [rect = frame.toRect()](const Screen& screen) {
        return rect.intersects(screen.visibleFrame);
    });
}

QRectF windowRect(const NoteFrame& frame, const std::vector<Screen>& screens)
{
    const QRectF wanted = frame.toRect().normalized();
    const QSizeF size = wanted.size().expandedTo(minWindowSize).boundedTo(maxWindowSize(screens));
    if (size == wanted.size())
        return wanted;

    const double top = wanted.y() + wanted.height();
    const QRectF kept(QPointF(wanted.x(), top - size.height()), size);
    if (std::isfinite(kept.y()) && isVisible(NoteFrame::fromRect(kept), screens))
        return kept;
    const QRectF visible = mainScreen(screens).visibleFrame;
    const double maxX = std::max(visible.x(), visible.x() + visible.width() - size.width());
    const double x = std::clamp(wanted.x(), visible.x(), maxX);
    return {QPointF(x, visible.y() + visible.height() - size.height()), size};
}

} // namespace driftbox::NotePlacement
