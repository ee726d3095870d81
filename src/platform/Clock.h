#pragma once

#include "platform/Instant.h"

#include <chrono>
#include <functional>
#include <memory>

#include <QtCore/QObject>

namespace driftbox {

/// A running repetition; it ends when the handle is destroyed.
class Repetition
{
public:
    Repetition() = default;
    Repetition(const Repetition&) = delete;
    Repetition& operator=(const Repetition&) = delete;
    virtual ~Repetition() = default;
};

/// Time as the program sees it: the wall clock and delayed steps.
///
/// Main thread only. Steps run on the main thread, from the event loop, never from within the call
/// that asked for them.
class Clock
{
public:
    Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;
    virtual ~Clock() = default;

    [[nodiscard]] virtual Instant now() const = 0;

    /// Runs `step` once, `delay` from now. Nothing runs when `owner` has been destroyed by then.
    virtual void after(std::chrono::milliseconds delay, QObject* owner,
                       std::function<void()> step) = 0;

    /// Runs `step` every `interval` until the returned handle is destroyed. Short lateness is
    /// accepted so that the system can wake up for several timers at once.
    [[nodiscard]] virtual std::unique_ptr<Repetition> every(std::chrono::milliseconds interval,
                                                            std::function<void()> step) = 0;
};

} // namespace driftbox
