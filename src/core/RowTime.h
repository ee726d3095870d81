#pragma once

#include "platform/Instant.h"

#include <QtCore/QString>

namespace driftbox {

/// Formats an instant for a list row, in the user's time zone: "12-31 23:59:59".
[[nodiscard]] QString rowTime(Instant instant);

} // namespace driftbox
