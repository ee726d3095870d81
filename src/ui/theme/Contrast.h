#pragma once

#include <QtGui/QColor>

namespace driftbox {

/// How well one opaque color can be told from another, as the accessibility guidelines of the web
/// measure it: from 1, not at all, to 21.
[[nodiscard]] double contrast(const QColor& one, const QColor& other);

/// `color`, made darker or lighter as far as it takes to have that contrast to `background`.
[[nodiscard]] QColor withContrast(const QColor& color, const QColor& background, double minimum);

} // namespace driftbox
