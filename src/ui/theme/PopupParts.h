#pragma once

#include <QtCore/QSize>

class QPainter;
class QRect;
class QPalette;
class QStyleOptionMenuItem;
class QWidget;

/// Paints menus and the lists of combo boxes.
namespace driftbox::PopupParts {

/// The margin between the edge of a menu and its entries, in points.
inline constexpr int margin = 5;

/// Gives a menu or a combo box list rounded corners, with and without compositing. Calling it again
/// has no effect.
void adopt(QWidget& popup);

/// The background of the entries.
void drawPanel(QPainter& painter, const QRect& frame, const QPalette& palette);

/// Whether the entries of a popup have icons.
enum class Icons { none, some };

/// An entry of a menu or a combo box list, or a separator.
void drawEntry(QPainter& painter, const QStyleOptionMenuItem& entry, Icons icons);
/// The size of an entry; `size` is the size that the base style would give it.
[[nodiscard]] QSize entrySize(const QStyleOptionMenuItem& entry, QSize size, Icons icons);

} // namespace driftbox::PopupParts
