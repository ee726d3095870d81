#include "panel/DoubleTapDetector.h"

#include <utility>

namespace driftbox {

bool DoubleTapDetector::registerModifierDown(EventTime now, Threshold threshold)
{
    const auto before = std::exchange(m_lastTap, now);
    const bool isInterrupted = std::exchange(m_commandUsedSinceLastTap, false);
    return before && !isInterrupted && Threshold(now - *before) <= threshold;
}

} // namespace driftbox
