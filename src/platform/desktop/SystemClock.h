#pragma once

#include "platform/Clock.h"

namespace driftbox {

/// The system clock and the event loop's timers. Repetitions missed while the machine is suspended
/// are not made up for.
class SystemClock final : public Clock
{
public:
    [[nodiscard]] Instant now() const override;
    /// Precise to the millisecond.
    void after(std::chrono::milliseconds delay, QObject* owner,
               std::function<void()> step) override;
    /// Precise to 5% of the interval. The step may destroy the handle.
    [[nodiscard]] std::unique_ptr<Repetition> every(std::chrono::milliseconds interval,
                                                    std::function<void()> step) override;
};

} // namespace driftbox
