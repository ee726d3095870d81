#include "ui/theme/CardShape.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <QtCore/QList>
#include <QtGui/QPainter>

namespace driftbox {

namespace {

// How far a corner extends along the sides, in radii. A circular arc extends exactly one.
constexpr qreal cornerReach = 1.4;

/// Three passes of a box blur, visually indistinguishable from a Gaussian blur.
class BoxBlur
{
public:
    explicit BoxBlur(qreal standardDeviation)
        : m_radius(std::max(
              1,
              qRound((std::sqrt(4.0 * standardDeviation * standardDeviation + 1.0) - 1.0) / 2.0)))
    {
    }

    void apply(QImage& mask) const
    {
        for (int pass = 0; pass < 3; ++pass) {
            for (int y = 0; y < mask.height(); ++y)
                average(mask.scanLine(y), mask.width(), 1);
            for (int x = 0; x < mask.width(); ++x)
                average(mask.bits() + x, mask.height(), mask.bytesPerLine());
        }
    }

private:
    void average(uchar* line, int count, qsizetype stride) const
    {
        QList<int> values(count + 2 * m_radius + 1);
        for (int i = 0; i < count; ++i)
            values[i + m_radius] = line[i * stride];
        const int window = 2 * m_radius + 1;
        int sum = 0;
        for (int i = 0; i < window - 1; ++i)
            sum += values[i];
        for (int i = 0; i < count; ++i) {
            sum += values[i + window - 1];
            line[i * stride] = static_cast<uchar>((sum + window / 2) / window);
            sum -= values[i];
        }
    }

    int m_radius;
};

} // namespace

QPainterPath continuousRoundedRect(const QRectF& rectangle, qreal radius)
{
    const qreal reach =
        std::min({radius * cornerReach, rectangle.width() / 2.0, rectangle.height() / 2.0});
    const qreal effectiveRadius = reach / cornerReach;
    // The control points lie on the sides, at a distance from the corner that puts the middle of
    // the curve where the middle of an arc would be.
    const qreal diagonal = effectiveRadius * (1.0 - 1.0 / std::sqrt(2.0));
    const qreal control = (8.0 * diagonal - reach) / 3.0;

    QPainterPath path;
    const auto corner = [&path, reach, control](QPointF at, QPointF from, QPointF to) {
        path.lineTo(at + from * reach);
        path.cubicTo(at + from * control, at + to * control, at + to * reach);
    };
    path.moveTo(rectangle.left() + reach, rectangle.top());
    corner(rectangle.topRight(), {-1, 0}, {0, 1});
    corner(rectangle.bottomRight(), {0, -1}, {-1, 0});
    corner(rectangle.bottomLeft(), {1, 0}, {0, -1});
    corner(rectangle.topLeft(), {0, 1}, {1, 0});
    path.closeSubpath();
    return path;
}

CardShadow::CardShadow(qreal cornerRadius, qreal blurRadius, const QColor& color)
    : m_cornerRadius(cornerRadius)
    , m_blurRadius(blurRadius)
    , m_color(color)
{
}

void CardShadow::render(qreal devicePixelRatio)
{
    // The distances at which the blur, and inside the card the influence of a corner, vanish.
    const qreal outside = 2.0 * m_blurRadius;
    const qreal inside = m_cornerRadius * cornerReach + outside;
    const int side = 2 * qCeil((outside + inside) * devicePixelRatio) + 1;

    QImage mask(side, side, QImage::Format_Alpha8);
    mask.fill(0);
    QPainter maskPainter(&mask);
    maskPainter.setRenderHint(QPainter::Antialiasing);
    const qreal margin = outside * devicePixelRatio;
    maskPainter.fillPath(
        continuousRoundedRect(QRectF(mask.rect()).adjusted(margin, margin, -margin, -margin),
                              m_cornerRadius * devicePixelRatio),
        Qt::black);
    maskPainter.end();
    BoxBlur(m_blurRadius / 2.0 * devicePixelRatio).apply(mask);

    QImage picture(mask.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(m_color);
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.drawImage(0, 0, mask);
    painter.end();
    picture.setDevicePixelRatio(devicePixelRatio);
    m_picture = picture;
}

void CardShadow::paint(QPainter& painter, const QRectF& card)
{
    const qreal ratio = painter.device()->devicePixelRatio();
    if (m_picture.isNull() || m_picture.devicePixelRatio() != ratio)
        render(ratio);

    // A nine-patch: the corners are copied, the row and column of pixels between them stretched.
    const qreal outside = 2.0 * m_blurRadius;
    const QRectF frame = card.adjusted(-outside, -outside, outside, outside);
    const int corner = m_picture.width() / 2;
    const qreal cornerExtent = corner / ratio;
    const std::array<int, 4> source{0, corner, corner + 1, m_picture.width()};
    const std::array<qreal, 4> x{frame.left(), frame.left() + cornerExtent,
                                 frame.right() - cornerExtent, frame.right()};
    const std::array<qreal, 4> y{frame.top(), frame.top() + cornerExtent,
                                 frame.bottom() - cornerExtent, frame.bottom()};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            const QRectF target(QPointF(x[column], y[row]), QPointF(x[column + 1], y[row + 1]));
            const QRectF part(QPointF(source[column], source[row]),
                              QPointF(source[column + 1], source[row + 1]));
            painter.drawImage(target, m_picture, part);
        }
    }
}

} // namespace driftbox
