#pragma once

#include "platform/Expected.h"

namespace driftbox {

/// Opens the accessibility page of the running desktop's settings program or else of any installed
/// one.
Expected<void> startAccessibilitySettings();

} // namespace driftbox
