#include "panel/view/CardEffect.h"

#include <algorithm>

#include <QtGui/QPainter>

namespace driftbox {

namespace {
constexpr double smallestScale = 0.88;
}

void CardEffect::setPresence(double presence)
{
    m_presence = presence;
    update();
}

void CardEffect::draw(QPainter* painter)
{
    if (m_presence <= 0.0)
        return;
    QPoint corner;
    const QPixmap picture =
        m_frozen.isNull() ? sourcePixmap(Qt::LogicalCoordinates, &corner, NoPad) : m_frozen;
    const QPointF centre = sourceBoundingRect().center();
    const double scale = smallestScale + (1.0 - smallestScale) * m_presence;

    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->setOpacity(std::min(m_presence, 1.0));
    painter->translate(centre);
    painter->scale(scale, scale);
    painter->translate(-centre);
    painter->drawPixmap(corner, picture);
}

} // namespace driftbox
