#pragma once

#include "platform/Clock.h"

namespace driftbox {

/// The time of the machine and the timers of the event loop. A step lost to a suspended machine is
/// not made up for.
class SystemClock final : public Clock
{
public:
    [[nodiscard]] Instant now() const override;
    /// To the millisecond.
    void after(std::chrono::milliseconds delay, QObject* owner,
               std::function<void()> step) override;
    /// Within 5% of the interval. The step may destroy the handle.
    [[nodiscard]] std::unique_ptr<Repetition> every(std::chrono::milliseconds interval,
                                                    std::function<void()> step) override;
};

} // namespace driftbox
