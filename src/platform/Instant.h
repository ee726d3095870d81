#pragma once

#include <compare>

#include <QtCore/QDateTime>

namespace driftbox {

/// A point in time, represented as in the manifests: seconds since 2001-01-01T00:00:00Z, with
/// fractions.
class Instant
{
public:
    constexpr Instant() = default;

    [[nodiscard]] static constexpr Instant fromReferenceSeconds(double seconds)
    {
        Instant instant;
        instant.m_referenceSeconds = seconds;
        return instant;
    }
    [[nodiscard]] static Instant fromDateTime(const QDateTime& dateTime);

    [[nodiscard]] constexpr double referenceSeconds() const { return m_referenceSeconds; }
    /// The same instant in the user's time zone, to the millisecond; clamped to the range that
    /// calendars support.
    [[nodiscard]] QDateTime toLocalTime() const;

    constexpr auto operator<=>(const Instant&) const = default;

private:
    double m_referenceSeconds = 0;
};

} // namespace driftbox
