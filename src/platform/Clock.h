#pragma once

#include "platform/Instant.h"

#include <chrono>
#include <functional>
#include <memory>

#include <QtCore/QObject>

namespace driftbox {

/// Handle of a repeating timer; destroying it stops the timer.
class Repetition
{
public:
    Repetition() = default;
    Q_DISABLE_COPY_MOVE(Repetition)
    virtual ~Repetition() = default;
};

/// The wall clock and the program's timers.
///
/// Main thread only. Steps run on the main thread, from the event loop, never from within the call
/// that scheduled them.
class Clock
{
public:
    Clock() = default;
    Q_DISABLE_COPY_MOVE(Clock)
    virtual ~Clock() = default;

    [[nodiscard]] virtual Instant now() const = 0;

    /// Runs `step` once, `delay` from now, unless `owner` has been destroyed by then.
    virtual void after(std::chrono::milliseconds delay, QObject* owner,
                       std::function<void()> step) = 0;

    /// Runs `step` every `interval` until the returned handle is destroyed. Steps may run slightly
    /// late so that the system can coalesce wake-ups.
    [[nodiscard]] virtual std::unique_ptr<Repetition> every(std::chrono::milliseconds interval,
                                                            std::function<void()> step) = 0;
};

} // namespace driftbox
