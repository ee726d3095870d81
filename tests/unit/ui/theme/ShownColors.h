#pragma once

#include <cmath>
#include <cstdlib>

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtTest/QTest>
#include <QtWidgets/QWidget>

/// The colors that a widget draws on a transparent background.
namespace driftbox::ShownColors {

[[nodiscard]] inline QImage pictureOf(QWidget& widget,
                                      QWidget::RenderFlags flags = QWidget::DrawChildren)
{
    QImage image(widget.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    widget.render(&image, {}, {}, flags);
    return image;
}

/// What is seen where `color` is painted over `ground`.
[[nodiscard]] inline QColor over(const QColor& ground, const QColor& color)
{
    QImage pixel(1, 1, QImage::Format_ARGB32_Premultiplied);
    pixel.fill(ground);
    QPainter(&pixel).fillRect(pixel.rect(), color);
    return pixel.pixelColor(0, 0);
}

/// A shadow of a blur of this radius at a place whose middle is that far outside the straight edge
/// of what casts it. The blur is a Gaussian one of half its radius.
[[nodiscard]] inline QColor shadow(double opacity, double radius, double distance)
{
    QColor color(Qt::black);
    color.setAlphaF(
        static_cast<float>(opacity * std::erfc(distance / (radius / 2.0) / std::sqrt(2.0)) / 2.0));
    return color;
}

/// Fails the test unless the colors are the same but for rounding.
inline void compare(const QColor& shown, const QColor& expected, int rounding = 2)
{
    const QRgb one = qPremultiply(shown.rgba());
    const QRgb other = qPremultiply(expected.rgba());
    const bool isSame = std::abs(qRed(one) - qRed(other)) <= rounding &&
                        std::abs(qGreen(one) - qGreen(other)) <= rounding &&
                        std::abs(qBlue(one) - qBlue(other)) <= rounding &&
                        std::abs(qAlpha(one) - qAlpha(other)) <= rounding;
    const QString difference = shown.name(QColor::HexArgb) + QStringLiteral(" instead of ") +
                               expected.name(QColor::HexArgb);
    QVERIFY2(isSame, qPrintable(difference));
}

} // namespace driftbox::ShownColors
