#pragma once

#include <QtGui/QIcon>

namespace driftbox {

/// The program's symbol for the desktop's bar, in all sizes that bars have. It can be told from a
/// light bar as well as from a dark one.
[[nodiscard]] QIcon menuBarSymbol();

} // namespace driftbox
