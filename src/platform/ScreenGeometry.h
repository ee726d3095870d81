#pragma once

#include "platform/Screens.h"

#include <vector>

/// Questions about screens, all in screen space.
namespace driftbox::ScreenGeometry {

/// The first screen whose frame holds `point`; null when none does. A point on the edge between two
/// screens belongs to the one on its right or beneath it.
[[nodiscard]] const Screen* screenContaining(QPointF point, const std::vector<Screen>& screens);

/// Where a panel of `size` has its lower left corner when it stands in the middle of the visible
/// part of the screen that holds `mouse`, or of the primary screen when none does. Stops the
/// program when there is no screen.
[[nodiscard]] QPointF centeredOrigin(QSizeF size, QPointF mouse,
                                     const std::vector<Screen>& screens);

} // namespace driftbox::ScreenGeometry
