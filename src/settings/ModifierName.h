#pragma once

#include "core/HotkeyModifier.h"

#include <QtCore/QString>

namespace driftbox {

/// A modifier key as the user reads it: its symbol and its name.
[[nodiscard]] QString modifierName(HotkeyModifier modifier);

} // namespace driftbox
