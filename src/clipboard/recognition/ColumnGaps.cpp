#include "clipboard/recognition/ColumnGaps.h"

#include <algorithm>

namespace driftbox {

namespace {

constexpr uchar maxInkValue = 200; // of 255, which is white
constexpr int lagDivisor = 3;      // of the line's height

std::vector<bool> inkedColumns(const QImage& line)
{
    std::vector<bool> inked(static_cast<size_t>(line.width()));
    for (int y = 0; y < line.height(); ++y) {
        const uchar* pixels = line.constScanLine(y);
        for (size_t x = 0; x < inked.size(); ++x) {
            if (pixels[x] <= maxInkValue)
                inked[x] = true;
        }
    }
    return inked;
}

} // namespace

ColumnGaps::ColumnGaps(const QImage& line)
    : m_lag(line.height() / lagDivisor)
{
    const std::vector<bool> inked = inkedColumns(line);
    for (auto begin = inked.begin(); begin != inked.end();) {
        begin = std::find(begin, inked.end(), false);
        const auto end = std::find(begin, inked.end(), true);
        if (begin != end)
            m_gaps.push_back({.begin = static_cast<int>(begin - inked.begin()),
                              .end = static_cast<int>(end - inked.begin())});
        begin = end;
    }
}

ColumnGaps::Gap ColumnGaps::before(int x) const
{
    Gap widest{.begin = x, .end = x};
    for (const Gap& gap : m_gaps) {
        if (gap.begin <= x && gap.end >= x - m_lag && gap.width() > widest.width())
            widest = gap;
    }
    return widest;
}

} // namespace driftbox
