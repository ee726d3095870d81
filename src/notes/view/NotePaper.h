#pragma once

#include "core/NoteColor.h"

#include <QtGui/QColor>

/// The colors of a note's content. They do not depend on the color scheme, because the paper is as
/// bright in the dark one as in the light one.
namespace driftbox::NotePaper {

/// Text.
[[nodiscard]] QColor ink();
/// The text color with this opacity.
[[nodiscard]] QColor ink(qreal opacity);
/// Symbols that are not hovered.
[[nodiscard]] QColor symbol();
/// The background of selected text on paper of this color.
[[nodiscard]] QColor selection(NoteColor color);

} // namespace driftbox::NotePaper
