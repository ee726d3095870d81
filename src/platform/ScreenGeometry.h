#pragma once

#include "platform/Screens.h"

#include <vector>

/// Screen lookup and placement, all in screen space.
namespace driftbox::ScreenGeometry {

/// The first screen whose frame contains `point`; null when none does. A point on the edge between
/// two screens belongs to the one on its right or below it.
[[nodiscard]] const Screen* screenContaining(QPointF point, const std::vector<Screen>& screens);

/// The lower left corner of a panel of `size` centered in the visible part of the screen that
/// contains `mouse`, or of the primary screen when none does. Aborts the program when there is no
/// screen.
[[nodiscard]] QPointF centeredOrigin(QSizeF size, QPointF mouse,
                                     const std::vector<Screen>& screens);

} // namespace driftbox::ScreenGeometry
