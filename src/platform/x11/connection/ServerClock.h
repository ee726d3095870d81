#pragma once

#include "platform/KeyEventMonitor.h"

#include <chrono>
#include <cstdint>
#include <optional>

namespace driftbox {

/// Extends the X server's 32-bit time stamps, which wrap around after 49.7 days, to monotonic ones.
/// The steady clock determines the number of wraparounds, however long no time stamp arrives.
class ServerClock
{
public:
    /// `now` is the arrival time of the time stamp.
    [[nodiscard]] EventTime extended(std::uint32_t timestamp,
                                     std::chrono::steady_clock::time_point now);

private:
    struct Reference
    {
        EventTime time;
        std::chrono::steady_clock::time_point arrival;
    };

    std::optional<Reference> m_last;
};

} // namespace driftbox
