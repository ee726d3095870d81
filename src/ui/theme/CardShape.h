#pragma once

#include <QtGui/QColor>
#include <QtGui/QImage>
#include <QtGui/QPainterPath>

class QPainter;

namespace driftbox {

/// A rectangle whose corners run into its sides without a jump in curvature; at the diagonal they
/// are as round as arcs of `radius`.
[[nodiscard]] QPainterPath continuousRoundedRect(const QRectF& rectangle, qreal radius);

/// The soft shadow of a continuous rounded rectangle. Its picture is made once for every scale and
/// size of corner, and drawn stretched.
class CardShadow
{
public:
    /// The corners are those of the card. The shadow reaches twice `blurRadius` beyond it.
    CardShadow(qreal cornerRadius, qreal blurRadius, const QColor& color);

    /// Draws the shadow that lies straight beneath `card`.
    void paint(QPainter& painter, const QRectF& card);

private:
    void render(qreal devicePixelRatio);

    qreal m_cornerRadius;
    qreal m_blurRadius;
    QColor m_color;
    QImage m_picture; ///< of the smallest card that has four whole corners
};

} // namespace driftbox
