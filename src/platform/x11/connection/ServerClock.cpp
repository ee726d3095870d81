#include "platform/x11/connection/ServerClock.h"

namespace driftbox {

EventTime ServerClock::extended(std::uint32_t timestamp, std::chrono::steady_clock::time_point now)
{
    std::int64_t time = timestamp;
    if (m_last) {
        const auto elapsed = std::chrono::duration_cast<EventTime>(now - m_last->arrival);
        const std::int64_t expected = (m_last->time + elapsed).count();
        // The signed difference of the low halves yields the nearest time with this stamp.
        const auto off =
            static_cast<std::int32_t>(timestamp - static_cast<std::uint32_t>(expected));
        time = expected + off;
    }
    m_last = Reference{EventTime(time), now};
    return m_last->time;
}

} // namespace driftbox
