#pragma once

#include "core/NoteColor.h"

#include <QtGui/QColor>

/// The colors of what lies on a note. The paper is as bright on a dark desktop as on a light one,
/// so they are the same on both.
namespace driftbox::NotePaper {

/// Text.
[[nodiscard]] QColor ink();
/// The same, thinner.
[[nodiscard]] QColor ink(qreal opacity);
/// Symbols that the pointer is not over.
[[nodiscard]] QColor symbol();
/// Behind selected text on paper of this color.
[[nodiscard]] QColor selection(NoteColor color);

} // namespace driftbox::NotePaper
