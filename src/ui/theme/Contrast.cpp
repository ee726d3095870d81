#include "ui/theme/Contrast.h"

#include "ui/theme/Theme.h"

#include <algorithm>
#include <cmath>

namespace driftbox {

namespace {

constexpr int steps = 20;

double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

} // namespace

double contrast(const QColor& one, const QColor& other)
{
    const double first = luminance(one);
    const double second = luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QColor withContrast(const QColor& color, const QColor& background, double minimum)
{
    const bool isTowardsWhite = contrast(Qt::white, background) > contrast(Qt::black, background);
    QColor result = color;
    for (int step = 1; step <= steps && contrast(result, background) < minimum; ++step)
        result = Theme::mixed(color, isTowardsWhite ? Qt::white : Qt::black, step / double(steps));
    return result;
}

} // namespace driftbox
