#pragma once

#include <vector>

#include <QtCore/QRect>
#include <QtGui/QImage>

namespace driftbox {

/// The boxes of the pieces of text in `marks` (of an `InkMap`), in no order. A piece is a run of
/// characters without a wide gap: a line of a paragraph, a cell of a table, a label. Marks that
/// cannot be text and pictures that are mere noise give none.
[[nodiscard]] std::vector<QRect> textPieces(const QImage& marks);

} // namespace driftbox
