#pragma once

#include <vector>

#include <QtCore/QRect>

namespace driftbox {

/// The pieces of text in a line, from left to right.
using TextLine = std::vector<QRect>;

/// The lines of a page in reading order: column by column, but tables row by row.
[[nodiscard]] std::vector<TextLine> inReadingOrder(const std::vector<QRect>& pieces);

} // namespace driftbox
