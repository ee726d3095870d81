#pragma once

#include <vector>

#include <QtCore/QRect>
#include <QtGui/QImage>

namespace driftbox {

/// The bounding boxes of the pieces of text in `marks` (of an `InkMap`), in no particular order. A
/// piece is a run of characters without a wide gap: a line of a paragraph, a table cell, a label.
/// Marks that cannot be text are ignored; a picture that is mere noise has no pieces.
[[nodiscard]] std::vector<QRect> textPieces(const QImage& marks);

} // namespace driftbox
