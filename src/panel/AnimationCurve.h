#pragma once

#include <chrono>
#include <variant>

namespace driftbox {

/// A damped oscillation about the end value. `response` is its period without damping, in seconds;
/// `dampingFraction`, below 1, is the damping relative to critical damping.
struct SpringCurve
{
    double response;
    double dampingFraction;

    bool operator==(const SpringCurve&) const = default;
};

/// Accelerates from rest to the end, which is reached after `duration` seconds.
struct EaseInCurve
{
    double duration;

    bool operator==(const EaseInCurve&) const = default;
};

/// The timing function of an animation.
using AnimationCurve = std::variant<SpringCurve, EaseInCurve>;

/// The progress after `elapsed`: 0 at the start, 1 at the end, more while a spring overshoots.
[[nodiscard]] double progress(const AnimationCurve& curve, std::chrono::duration<double> elapsed);

/// The time after which the value has visibly settled; from then on `progress` can be taken as 1.
[[nodiscard]] std::chrono::duration<double> duration(const AnimationCurve& curve);

} // namespace driftbox
