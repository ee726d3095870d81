#include "clipboard/recognition/ReadingOrder.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace driftbox {

namespace {

using Pieces = std::vector<QRect>;

/// An empty strip through a region.
struct Gap
{
    int width = 0;
    int position = 0; ///< its first pixel
};

/// The accessors of a piece's extent along one axis.
struct Axis
{
    int (QRect::*begin)() const;
    int (QRect::*end)() const;
};

constexpr Axis horizontal{&QRect::left, &QRect::right};
constexpr Axis vertical{&QRect::top, &QRect::bottom};

std::vector<Gap> gaps(Pieces pieces, const Axis& axis)
{
    std::ranges::sort(pieces, {}, axis.begin);
    std::vector<Gap> found;
    int end = (pieces.front().*axis.end)();
    for (const QRect& piece : pieces) {
        const int begin = (piece.*axis.begin)();
        if (begin > end + 1)
            found.push_back({.width = begin - end - 1, .position = end + 1});
        end = std::max(end, (piece.*axis.end)());
    }
    return found;
}

/// The groups of `pieces` between the gaps, in order.
std::vector<Pieces> cutAtAll(const std::vector<Gap>& gaps, const Pieces& pieces, const Axis& axis)
{
    std::vector<Pieces> parts(gaps.size() + 1);
    for (const QRect& piece : pieces) {
        const int begin = (piece.*axis.begin)();
        const auto next = std::ranges::upper_bound(gaps, begin, {}, &Gap::position);
        parts[static_cast<size_t>(next - gaps.begin())].push_back(piece);
    }
    return parts;
}

std::pair<Pieces, Pieces> cutAt(const Gap& gap, const Pieces& pieces, const Axis& axis)
{
    std::pair<Pieces, Pieces> parts;
    for (const QRect& piece : pieces)
        ((piece.*axis.begin)() < gap.position ? parts.first : parts.second).push_back(piece);
    return parts;
}

int medianHeight(const Pieces& pieces)
{
    std::vector<int> heights;
    for (const QRect& piece : pieces)
        heights.push_back(piece.height());
    const auto middle = heights.begin() + static_cast<std::ptrdiff_t>(heights.size() / 2);
    std::ranges::nth_element(heights, middle);
    return *middle;
}

int meanWidth(const Pieces& pieces)
{
    int sum = 0;
    for (const QRect& piece : pieces)
        sum += piece.width();
    return sum / static_cast<int>(pieces.size());
}

bool isSameRow(const QRect& a, const QRect& b)
{
    const int overlap = std::min(a.bottom(), b.bottom()) - std::max(a.top(), b.top()) + 1;
    return overlap * 2 > std::min(a.height(), b.height());
}

/// Whether the two columns are read row by row: the pieces of one have counterparts in the other,
/// and they are too short to be lines of running text.
bool isTable(const Pieces& left, const Pieces& right)
{
    const bool isLeftSmaller = left.size() < right.size();
    const Pieces& fewer = isLeftSmaller ? left : right;
    const Pieces& more = isLeftSmaller ? right : left;
    const auto paired = std::ranges::count_if(fewer, [&](const QRect& piece) {
        return std::ranges::any_of(more,
                                   [&](const QRect& other) { return isSameRow(piece, other); });
    });
    constexpr int minRunningTextLength = 16; // times the height
    const int shorter = std::min(meanWidth(left), meanWidth(right));
    return paired * 5 >= std::ssize(fewer) * 4 &&
           shorter < minRunningTextLength * medianHeight(fewer);
}

std::optional<Gap> widest(const std::vector<Gap>& all)
{
    const auto found = std::ranges::max_element(all, {}, &Gap::width);
    return found == all.end() ? std::nullopt : std::optional(*found);
}

/// The widest gap between two columns of at least two lines each.
std::optional<Gap> columnGap(const Pieces& pieces)
{
    std::vector<Gap> possible;
    const int minWidth = medianHeight(pieces) * 6 / 5;
    for (const Gap& gap : gaps(pieces, horizontal)) {
        if (gap.width < minWidth)
            continue;
        const auto [left, right] = cutAt(gap, pieces, horizontal);
        if (left.size() > 1 && right.size() > 1 && !isTable(left, right))
            possible.push_back(gap);
    }
    return widest(possible);
}

void addRows(Pieces pieces, std::vector<TextLine>& lines)
{
    std::ranges::sort(pieces, {}, [](const QRect& piece) { return piece.center().y(); });
    const auto first = std::ssize(lines);
    for (const QRect& piece : pieces) {
        const bool isNext =
            std::ssize(lines) > first && std::ranges::any_of(lines.back(), [&](const QRect& other) {
                return isSameRow(piece, other);
            });
        if (!isNext)
            lines.emplace_back();
        lines.back().push_back(piece);
    }
    for (auto line = lines.begin() + first; line != lines.end(); ++line)
        std::ranges::sort(*line, {}, &QRect::left);
}

/// The gaps between rows that are about as wide as the widest.
std::vector<Gap> rowGaps(const Pieces& pieces)
{
    std::vector<Gap> found = gaps(pieces, vertical);
    if (const auto max = widest(found))
        std::erase_if(found, [&](const Gap& gap) { return 10 * gap.width < 9 * max->width; });
    return found;
}

void addInOrder(const Pieces& pieces, std::vector<TextLine>& lines)
{
    const std::vector<Gap> rows = rowGaps(pieces);
    const std::optional<Gap> column = columnGap(pieces);
    if (column && (rows.empty() || column->width >= widest(rows)->width)) {
        const auto [left, right] = cutAt(*column, pieces, horizontal);
        addInOrder(left, lines);
        addInOrder(right, lines);
    } else if (!rows.empty()) {
        for (const Pieces& part : cutAtAll(rows, pieces, vertical))
            addInOrder(part, lines);
    } else {
        addRows(pieces, lines);
    }
}

} // namespace

std::vector<TextLine> inReadingOrder(const std::vector<QRect>& pieces)
{
    std::vector<TextLine> lines;
    if (!pieces.empty())
        addInOrder(pieces, lines);
    return lines;
}

} // namespace driftbox
