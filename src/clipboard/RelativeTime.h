#pragma once

#include "platform/Instant.h"

#include <QtCore/QLocale>
#include <QtCore/QString>

namespace driftbox {

/// How long ago `then` was, as one would say it at `now`: "now", "5 minutes ago", "yesterday".
[[nodiscard]] QString relativeTime(Instant then, Instant now, const QLocale& locale);

} // namespace driftbox
