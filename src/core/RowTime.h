#pragma once

#include "platform/Instant.h"

#include <QtCore/QString>

namespace driftbox {

/// An instant as the rows of lists show it, in the user's time zone: "12-31 23:59:59".
[[nodiscard]] QString rowTime(Instant instant);

} // namespace driftbox
