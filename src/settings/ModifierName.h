#pragma once

#include "core/HotkeyModifier.h"

#include <QtCore/QString>

namespace driftbox {

/// The display name of a modifier key: its symbol and its name.
[[nodiscard]] QString modifierName(HotkeyModifier modifier);

} // namespace driftbox
