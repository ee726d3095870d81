#include "ui/list/RowPositions.h"

#include <algorithm>

namespace driftbox {

int RowPositions::rowAt(int y) const
{
    if (y < 0 || y >= height())
        return -1;
    return static_cast<int>(std::ranges::upper_bound(m_bottoms, y) - m_bottoms.begin());
}

} // namespace driftbox
