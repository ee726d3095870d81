#pragma once

#include "settings/SettingsSection.h"

#include <QtGui/QColor>

namespace driftbox {

/// The color as it is in the current appearance, light or dark; ask while painting.
[[nodiscard]] QColor systemColor(SystemColor color);

} // namespace driftbox
