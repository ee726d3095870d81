#pragma once

#include <QtCore/QSize>

class QPainter;
class QRect;
class QPalette;
class QStyleOptionMenuItem;
class QWidget;

/// What menus and the lists of pickers are made of.
namespace driftbox::PopupParts {

/// Between the edge of a menu and its entries, in points.
inline constexpr int margin = 5;

/// Gives a menu or the list of a picker round corners from now on, on desktops that blend windows
/// and on those that do not.
void adopt(QWidget& popup);

/// What is behind the entries.
void drawPanel(QPainter& painter, const QRect& frame, const QPalette& palette);

/// Whether the entries of a popup have icons.
enum class Icons { none, some };

/// An entry of a menu or a picker, or a line between entries.
void drawEntry(QPainter& painter, const QStyleOptionMenuItem& entry, Icons icons);
/// How large an entry is that the toolkit would make `size` large.
[[nodiscard]] QSize entrySize(const QStyleOptionMenuItem& entry, QSize size, Icons icons);

} // namespace driftbox::PopupParts
