#pragma once

#include "core/NoteColor.h"

#include <QtGui/QColor>
#include <QtGui/QFont>

/// The program's colors and fonts. Colors are those of the application's palette at the moment of
/// asking, so ask while painting and never keep one: every widget is repainted when the desktop
/// turns light or dark. Sizes of fonts are in points of this program, of which one is one pixel on
/// a screen of scale 1.
namespace driftbox::Theme {

/// Whether text is light and lies on something dark.
[[nodiscard]] bool isDark();

/// The desktop's accent color, or the program's own where the desktop has none.
[[nodiscard]] QColor accent();
/// What is pinned.
[[nodiscard]] QColor pinOn();
/// What is destructive.
[[nodiscard]] QColor destructive();
[[nodiscard]] QColor panelBackground();

/// Text and symbols, from the most to the least important.
[[nodiscard]] QColor primary();
[[nodiscard]] QColor secondary();
[[nodiscard]] QColor tertiary();

/// Lines between parts of a view.
[[nodiscard]] QColor divider();
/// The area under the pointer.
[[nodiscard]] QColor hoverFill();

/// `color` at `opacity`, from 0 to 1.
[[nodiscard]] QColor withOpacity(QColor color, qreal opacity);
/// `from` at a `share` of 0, `to` at 1, opacity included.
[[nodiscard]] QColor mixed(const QColor& from, const QColor& to, qreal share);

/// The background of a note of that color, the same in light and dark.
[[nodiscard]] QColor noteSwatch(NoteColor color);

/// The system font at a size in points.
[[nodiscard]] QFont systemFont(int size, QFont::Weight weight = QFont::Normal);

namespace Font {
[[nodiscard]] QFont rowTitle();
[[nodiscard]] QFont rowMeta();
[[nodiscard]] QFont search();
[[nodiscard]] QFont sectionTitle();
} // namespace Font

} // namespace driftbox::Theme
