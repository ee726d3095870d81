#pragma once

#include <QtGui/QColor>
#include <QtGui/QImage>
#include <QtGui/QPainterPath>

class QPainter;

namespace driftbox {

/// A rounded rectangle with continuous curvature where the corners meet the sides. Halfway, its
/// corners coincide with circular arcs of `radius`.
[[nodiscard]] QPainterPath continuousRoundedRect(const QRectF& rectangle, qreal radius);

/// The soft shadow of a continuous rounded rectangle. Rendered once per device pixel ratio and
/// painted as a nine-patch.
class CardShadow
{
public:
    /// `cornerRadius` is the card's. The shadow extends beyond the card by twice `blurRadius`.
    CardShadow(qreal cornerRadius, qreal blurRadius, const QColor& color);

    /// Paints the shadow of `card`, without an offset.
    void paint(QPainter& painter, const QRectF& card);

private:
    void render(qreal devicePixelRatio);

    qreal m_cornerRadius;
    qreal m_blurRadius;
    QColor m_color;
    QImage m_picture; ///< the shadow of the smallest card with four complete corners
};

} // namespace driftbox
