#pragma once

#include "settings/SettingsSection.h"

#include <QtGui/QColor>

namespace driftbox {

/// The color in the current appearance, light or dark; look it up on every paint.
[[nodiscard]] QColor systemColor(SystemColor color);

} // namespace driftbox
