#pragma once

#include "ui/theme/Symbols.h"

#include <cstdlib>

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtWidgets/QWidget>

/// The symbols that can be seen in a widget.
namespace driftbox::ShownSymbols {

inline bool isSame(QRgb one, QRgb other)
{
    constexpr int rounding = 2;
    return std::abs(qRed(one) - qRed(other)) <= rounding &&
           std::abs(qGreen(one) - qGreen(other)) <= rounding &&
           std::abs(qBlue(one) - qBlue(other)) <= rounding;
}

/// Whether this place of a picture shows the symbol, whose corners are empty, on an even ground.
inline bool isAt(QPoint place, const QImage& shown, const QImage& symbol)
{
    QImage expected(symbol.size(), QImage::Format_RGB32);
    expected.fill(shown.pixel(place));
    QPainter(&expected).drawImage(0, 0, symbol);
    for (int y = 0; y < symbol.height(); ++y) {
        for (int x = 0; x < symbol.width(); ++x) {
            if (!isSame(shown.pixel(place + QPoint(x, y)), expected.pixel(x, y)))
                return false;
        }
    }
    return true;
}

/// Whether the symbol is somewhere in this area of the widget; all of it when that is empty.
inline bool isIn(QWidget& widget, const QString& name, const Symbols::Style& style,
                 const QRect& area = {})
{
    const QImage shown = widget.grab(area.isEmpty() ? widget.rect() : area).toImage();
    const QImage symbol = Symbols::pixmap(name, style, 1.0).toImage();
    for (int y = 0; y + symbol.height() <= shown.height(); ++y) {
        for (int x = 0; x + symbol.width() <= shown.width(); ++x) {
            if (isAt({x, y}, shown, symbol))
                return true;
        }
    }
    return false;
}

} // namespace driftbox::ShownSymbols
