#pragma once

#include "platform/Instant.h"

#include <QtCore/QLocale>
#include <QtCore/QString>

namespace driftbox {

/// Formats `then` relative to `now`, in the locale's language: "now", "5 minutes ago", "yesterday".
/// Empty if formatting fails.
[[nodiscard]] QString relativeTime(Instant then, Instant now, const QLocale& locale);

} // namespace driftbox
