#pragma once

#include "platform/Expected.h"

namespace driftbox {

/// Starts the settings program of the running desktop, or else any that is installed, on what it
/// has about accessibility.
Expected<void> startAccessibilitySettings();

} // namespace driftbox
