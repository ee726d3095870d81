#pragma once

#include "platform/KeyEventMonitor.h"

#include <chrono>
#include <optional>

namespace driftbox {

/// Tells a double tap of a modifier key from other uses of it. It is not disarmed by a double tap:
/// a third quick tap completes another one.
class DoubleTapDetector
{
public:
    using Threshold = std::chrono::duration<double>;

    /// The modifier went down at `now`. True when this completes a double tap: the tap before it is
    /// no more than `threshold` ago and no ordinary key was pressed in between.
    bool registerModifierDown(EventTime now, Threshold threshold);

    /// An ordinary key was pressed: the tap before it counts no more.
    void registerKeyPress() { m_commandUsedSinceLastTap = true; }

    /// Forgets what was seen.
    void reset() { *this = {}; }

private:
    std::optional<EventTime> m_lastTap;
    bool m_commandUsedSinceLastTap = false;
};

} // namespace driftbox
