#pragma once

#include <vector>

#include <QtCore/QRect>

namespace driftbox {

/// Pieces of text that stand side by side, from left to right.
using TextLine = std::vector<QRect>;

/// The lines of a page in the order in which a person reads them: column by column, but a table
/// row by row.
[[nodiscard]] std::vector<TextLine> inReadingOrder(const std::vector<QRect>& pieces);

} // namespace driftbox
