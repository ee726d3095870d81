#pragma once

#include <QtCore/QRectF>
#include <QtCore/QString>
#include <QtGui/QColor>
#include <QtGui/QIcon>
#include <QtGui/QPixmap>

class QPainter;

/// The program's symbols, drawn in any color at any scale. A symbol is as large as text of the
/// same size. Main thread only.
namespace driftbox::Symbols {

enum class Weight { regular, semibold, bold };

struct Style
{
    int size; ///< of the text that the symbol goes with, in points
    QColor color;
    Weight weight = Weight::regular;
};

/// The side of the square that a symbol of this size fills, in points.
[[nodiscard]] int extent(int size);

/// A picture for a device of `devicePixelRatio`; the application keeps it for the next time. Null
/// for an unknown name, which is logged.
[[nodiscard]] QPixmap pixmap(const QString& name, const Style& style, qreal devicePixelRatio);

/// Draws the symbol in the middle of `area`, on whole pixels of the device.
void paint(QPainter& painter, const QRectF& area, const QString& name, const Style& style);

/// For menus and buttons of the toolkit. It keeps its color.
[[nodiscard]] QIcon icon(const QString& name, const Style& style);

} // namespace driftbox::Symbols
