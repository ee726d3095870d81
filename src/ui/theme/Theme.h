#pragma once

#include "core/NoteColor.h"

#include <QtGui/QColor>
#include <QtGui/QFont>

/// The program's colors and fonts. Colors depend on the application's current palette, so get them
/// while painting and do not store them: all widgets are repainted when the color scheme changes.
/// Font sizes are in device-independent pixels.
namespace driftbox::Theme {

/// Whether the background is dark.
[[nodiscard]] bool isDark();

/// The desktop's accent color, or the program's own if the desktop has none.
[[nodiscard]] QColor accent();
/// The color of the pin of pinned items.
[[nodiscard]] QColor pinOn();
/// The color of destructive actions.
[[nodiscard]] QColor destructive();
[[nodiscard]] QColor panelBackground();

/// Text and symbol colors, from most to least important.
[[nodiscard]] QColor primary();
[[nodiscard]] QColor secondary();
[[nodiscard]] QColor tertiary();

/// Lines between parts of a view.
[[nodiscard]] QColor divider();
/// The fill of hovered areas.
[[nodiscard]] QColor hoverFill();

/// `color` at `opacity`, from 0 to 1.
[[nodiscard]] QColor withOpacity(QColor color, qreal opacity);
/// Interpolates linearly, including opacity: `from` at a `share` of 0, `to` at 1.
[[nodiscard]] QColor mixed(const QColor& from, const QColor& to, qreal share);

/// The background of a note of this color, the same in both color schemes.
[[nodiscard]] QColor noteSwatch(NoteColor color);

/// The system font at a size in device-independent pixels.
[[nodiscard]] QFont systemFont(int size, QFont::Weight weight = QFont::Normal);

namespace Font {
[[nodiscard]] QFont rowTitle();
[[nodiscard]] QFont rowMeta();
[[nodiscard]] QFont search();
[[nodiscard]] QFont sectionTitle();
} // namespace Font

} // namespace driftbox::Theme
