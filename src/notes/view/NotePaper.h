#pragma once

#include "core/NoteColor.h"

#include <QtGui/QColor>

/// The colours of what lies on a note. The paper is as bright on a dark desktop as on a light one,
/// so they are the same on both.
namespace driftbox::NotePaper {

/// Text and symbols.
[[nodiscard]] QColor ink();
/// The same, thinner.
[[nodiscard]] QColor ink(qreal opacity);
/// Behind selected text on paper of this colour.
[[nodiscard]] QColor selection(NoteColor color);

} // namespace driftbox::NotePaper
