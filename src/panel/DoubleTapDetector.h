#pragma once

#include "platform/KeyEventMonitor.h"

#include <chrono>
#include <optional>

namespace driftbox {

/// Distinguishes a double tap of a modifier key from other uses of the key. A third quick tap
/// completes another double tap.
class DoubleTapDetector
{
public:
    using Threshold = std::chrono::duration<double>;

    /// Call when the modifier is pressed at `now`. Returns whether this completes a double tap: the
    /// previous tap is at most `threshold` ago and no other key was pressed in between.
    bool registerModifierDown(EventTime now, Threshold threshold);

    /// Call when any other key is pressed: invalidates the previous tap.
    void registerKeyPress() { m_commandUsedSinceLastTap = true; }

    /// Discards the previous tap.
    void reset() { *this = {}; }

private:
    std::optional<EventTime> m_lastTap;
    bool m_commandUsedSinceLastTap = false;
};

} // namespace driftbox
