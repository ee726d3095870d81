#include "platform/Instant.h"

#include <algorithm>

namespace driftbox {

namespace {
constexpr qint64 referenceEpochMs = 978'307'200'000; // 2001-01-01T00:00:00Z in Unix time
constexpr double maxMs = 8.64e15;                    // the range of calendars, in both directions
} // namespace

Instant Instant::fromDateTime(const QDateTime& dateTime)
{
    return fromReferenceSeconds(
        static_cast<double>(dateTime.toMSecsSinceEpoch() - referenceEpochMs) / 1000.0);
}

QDateTime Instant::toLocalTime() const
{
    const double milliseconds = std::clamp(m_referenceSeconds * 1000.0, -maxMs, maxMs);
    return QDateTime::fromMSecsSinceEpoch(referenceEpochMs + static_cast<qint64>(milliseconds));
}

} // namespace driftbox
