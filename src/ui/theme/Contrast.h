#pragma once

#include <QtGui/QColor>

namespace driftbox {

/// The contrast ratio of two opaque colors according to WCAG, from 1 to 21.
[[nodiscard]] double contrast(const QColor& one, const QColor& other);

/// `color`, darkened or lightened until its contrast to `background` is at least `minimum`.
[[nodiscard]] QColor withContrast(const QColor& color, const QColor& background, double minimum);

} // namespace driftbox
