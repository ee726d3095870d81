#pragma once

#include <chrono>
#include <stop_token>

#include <QtCore/QDeadlineTimer>

namespace driftbox {

/// When text recognition must end: at a deadline, or as soon as a stop is requested. Thread-safe.
class ReadingLimit
{
public:
    explicit ReadingLimit(std::chrono::milliseconds time, std::stop_token stop = {})
        : m_deadline(time)
        , m_stop(std::move(stop))
    {
    }

    [[nodiscard]] bool isReached() const
    {
        return m_deadline.hasExpired() || m_stop.stop_requested();
    }

    /// In milliseconds; 0 once the limit is reached.
    [[nodiscard]] int timeLeft() const
    {
        return m_stop.stop_requested() ? 0 : static_cast<int>(m_deadline.remainingTime());
    }

private:
    QDeadlineTimer m_deadline;
    std::stop_token m_stop;
};

} // namespace driftbox
