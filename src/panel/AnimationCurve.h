#pragma once

#include <chrono>
#include <variant>

namespace driftbox {

/// A damped oscillation about the end value. `response` is the period that it would have undamped,
/// in seconds; `dampingFraction`, below 1, is the share of the damping at which it would not
/// overshoot any more.
struct SpringCurve
{
    double response;
    double dampingFraction;

    bool operator==(const SpringCurve&) const = default;
};

/// Starts at rest and is fastest at the end, after `duration` seconds.
struct EaseInCurve
{
    double duration;

    bool operator==(const EaseInCurve&) const = default;
};

/// How a value moves from one end of an animation to the other.
using AnimationCurve = std::variant<SpringCurve, EaseInCurve>;

/// How far the value has come after `elapsed`: 0 at the start, 1 at the end, more while a spring
/// overshoots.
[[nodiscard]] double progress(const AnimationCurve& curve, std::chrono::duration<double> elapsed);

/// When the value has arrived for every eye; from then on `progress` may be taken as 1.
[[nodiscard]] std::chrono::duration<double> duration(const AnimationCurve& curve);

} // namespace driftbox
