#include "panel/view/CardEffect.h"

#include <algorithm>

#include <QtCore/QtMath>
#include <QtGui/QPainter>
#include <QtGui/QPixmapCache>

namespace driftbox {

namespace {

constexpr double minScale = 0.88;

// Qt keeps the source pixmap in its pixmap cache, but only if it fits.
void ensureCacheLimit(QSizeF size, qreal devicePixelRatio)
{
    constexpr double bytesPerPixel = 4.0;
    constexpr double bytesPerUnit = 1024.0;
    const double pixels = size.width() * size.height() * devicePixelRatio * devicePixelRatio;
    const int needed = qCeil(pixels * bytesPerPixel / bytesPerUnit * 1.1);
    if (QPixmapCache::cacheLimit() < needed)
        QPixmapCache::setCacheLimit(needed);
}

} // namespace

void CardEffect::setPresence(double presence)
{
    m_presence = presence;
    update();
}

void CardEffect::draw(QPainter* painter)
{
    if (m_presence <= 0.0)
        return;
    ensureCacheLimit(sourceBoundingRect().size(), painter->device()->devicePixelRatio());
    QPoint corner;
    const QPixmap picture =
        m_frozen.isNull() ? sourcePixmap(Qt::LogicalCoordinates, &corner, NoPad) : m_frozen;
    const QPointF center = sourceBoundingRect().center();
    const double scale = minScale + (1.0 - minScale) * m_presence;

    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->setOpacity(std::min(m_presence, 1.0));
    painter->translate(center);
    painter->scale(scale, scale);
    painter->translate(-center);
    painter->drawPixmap(corner, picture);
}

} // namespace driftbox
