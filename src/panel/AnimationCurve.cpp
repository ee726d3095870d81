#include "panel/AnimationCurve.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include <QtCore/QEasingCurve>
#include <QtCore/QPointF>

namespace driftbox {

namespace {

// A spring counts as settled when its remaining amplitude moves an edge of the panel by only a
// fraction of a pixel.
constexpr double settledAmplitude = 0.004;

struct SpringMotion
{
    explicit SpringMotion(const SpringCurve& curve)
        : decay(curve.dampingFraction * 2.0 * std::numbers::pi / curve.response)
        , frequency(std::sqrt(1.0 - curve.dampingFraction * curve.dampingFraction) * 2.0 *
                    std::numbers::pi / curve.response)
    {
    }

    [[nodiscard]] double at(double seconds) const
    {
        const double oscillation =
            std::cos(frequency * seconds) + decay / frequency * std::sin(frequency * seconds);
        return 1.0 - std::exp(-decay * seconds) * oscillation;
    }

    [[nodiscard]] double settlingTime() const
    {
        const double amplitude = std::hypot(1.0, decay / frequency);
        return std::log(amplitude / settledAmplitude) / decay;
    }

    double decay;     // per second
    double frequency; // radians per second
};

struct ProgressAt
{
    double operator()(const SpringCurve& curve) const { return SpringMotion(curve).at(seconds); }
    double operator()(const EaseInCurve& curve) const
    {
        QEasingCurve easing(QEasingCurve::BezierSpline);
        easing.addCubicBezierSegment({0.42, 0.0}, {1.0, 1.0}, {1.0, 1.0});
        return easing.valueForProgress(std::clamp(seconds / curve.duration, 0.0, 1.0));
    }

    double seconds;
};

struct DurationOf
{
    double operator()(const SpringCurve& curve) const { return SpringMotion(curve).settlingTime(); }
    double operator()(const EaseInCurve& curve) const { return curve.duration; }
};

} // namespace

double progress(const AnimationCurve& curve, std::chrono::duration<double> elapsed)
{
    return std::visit(ProgressAt{std::max(elapsed.count(), 0.0)}, curve);
}

std::chrono::duration<double> duration(const AnimationCurve& curve)
{
    return std::chrono::duration<double>(std::visit(DurationOf(), curve));
}

} // namespace driftbox
