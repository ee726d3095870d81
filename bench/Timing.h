#pragma once

#include <QtCore/QElapsedTimer>

namespace driftbox::bench {

/// The time since the timer was started, in milliseconds.
[[nodiscard]] inline double milliseconds(const QElapsedTimer& timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

} // namespace driftbox::bench
