#pragma once

#include "platform/KeyEventMonitor.h"

#include <chrono>
#include <cstdint>
#include <optional>

namespace driftbox {

/// Makes the X server's 32-bit time stamps, which start over after 49.7 days, into ever growing
/// ones. However long no time stamp comes, the steady clock tells how often they started over.
class ServerClock
{
public:
    /// `now` is the time at which the stamp arrived.
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
