#include "platform/x11/windows/Strut.h"

#include <algorithm>
#include <array>
#include <limits>

namespace driftbox {

namespace {

constexpr std::array strutEdges = {Qt::LeftEdge, Qt::RightEdge, Qt::TopEdge, Qt::BottomEdge};
constexpr std::size_t partialCount = 12; // the depth of each edge, then its two ends

int bounded(std::uint32_t number)
{
    constexpr std::uint32_t max = std::numeric_limits<std::int16_t>::max();
    return static_cast<int>(std::min(number, max));
}

bool overlaps(const Strut& strut, int first, int last)
{
    return strut.from <= last && strut.to >= first;
}

} // namespace

std::vector<Strut> strutsFrom(std::span<const std::uint32_t> property)
{
    std::vector<Strut> struts;
    const bool isPartial = property.size() >= partialCount;
    if (property.size() < strutEdges.size())
        return struts;
    for (std::size_t i = 0; i < strutEdges.size(); ++i) {
        if (property[i] == 0)
            continue;
        Strut strut{strutEdges[i], bounded(property[i]), 0, std::numeric_limits<int>::max()};
        if (isPartial) {
            strut.from = bounded(property[strutEdges.size() + 2 * i]);
            strut.to = bounded(property[strutEdges.size() + 2 * i + 1]);
        }
        struts.push_back(strut);
    }
    return struts;
}

QRect withoutStruts(const QRect& screen, QSize desktop, std::span<const Strut> struts)
{
    QRect free = screen;
    for (const Strut& strut : struts) {
        const bool isUpright = strut.edge == Qt::LeftEdge || strut.edge == Qt::RightEdge;
        if (isUpright ? !overlaps(strut, screen.top(), screen.bottom())
                      : !overlaps(strut, screen.left(), screen.right()))
            continue;
        // Compares with the first free column or row next to the strut, which lies on the strut's
        // screen.
        switch (strut.edge) {
        case Qt::LeftEdge:
            if (strut.depth > screen.left() && strut.depth <= screen.right())
                free.setLeft(std::max(free.left(), strut.depth));
            break;
        case Qt::RightEdge: {
            const int last = desktop.width() - strut.depth - 1;
            if (last < screen.right() && last >= screen.left())
                free.setRight(std::min(free.right(), last));
            break;
        }
        case Qt::TopEdge:
            if (strut.depth > screen.top() && strut.depth <= screen.bottom())
                free.setTop(std::max(free.top(), strut.depth));
            break;
        case Qt::BottomEdge: {
            const int last = desktop.height() - strut.depth - 1;
            if (last < screen.bottom() && last >= screen.top())
                free.setBottom(std::min(free.bottom(), last));
            break;
        }
        }
    }
    return free.isValid() ? free : screen;
}

} // namespace driftbox
