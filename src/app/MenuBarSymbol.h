#pragma once

#include <QtGui/QIcon>

namespace driftbox {

/// The program's icon for the status area, in all common sizes. It is visible on light and dark
/// bars.
[[nodiscard]] QIcon menuBarSymbol();

} // namespace driftbox
