#include "platform/Instant.h"

namespace driftbox {

namespace {
constexpr qint64 referenceEpochMs = 978'307'200'000; // 2001-01-01T00:00:00Z in Unix time
}

Instant Instant::fromDateTime(const QDateTime& dateTime)
{
    return fromReferenceSeconds(
        static_cast<double>(dateTime.toMSecsSinceEpoch() - referenceEpochMs) / 1000.0);
}

QDateTime Instant::toLocalTime() const
{
    return QDateTime::fromMSecsSinceEpoch(referenceEpochMs +
                                          static_cast<qint64>(m_referenceSeconds * 1000.0));
}

} // namespace driftbox
