#include "clipboard/recognition/ReadingOrder.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace driftbox {

namespace {

using Pieces = std::vector<QRect>;

/// An empty strip across a region.
struct Gap
{
    int width = 0;
    int position = 0; ///< its first pixel
};

/// Of a direction across the page: where a piece begins and ends.
struct Direction
{
    int (QRect::*begin)() const;
    int (QRect::*end)() const;
};

constexpr Direction across{&QRect::left, &QRect::right};
constexpr Direction down{&QRect::top, &QRect::bottom};

std::vector<Gap> gaps(Pieces pieces, const Direction& direction)
{
    std::ranges::sort(pieces, {}, direction.begin);
    std::vector<Gap> found;
    int end = (pieces.front().*direction.end)();
    for (const QRect& piece : pieces) {
        const int begin = (piece.*direction.begin)();
        if (begin > end + 1)
            found.push_back({.width = begin - end - 1, .position = end + 1});
        end = std::max(end, (piece.*direction.end)());
    }
    return found;
}

/// The parts of `pieces` between the gaps, in their order.
std::vector<Pieces> cutAtAll(const std::vector<Gap>& gaps, const Pieces& pieces,
                             const Direction& direction)
{
    std::vector<Pieces> parts(gaps.size() + 1);
    for (const QRect& piece : pieces) {
        const int begin = (piece.*direction.begin)();
        const auto next = std::ranges::upper_bound(gaps, begin, {}, &Gap::position);
        parts[static_cast<size_t>(next - gaps.begin())].push_back(piece);
    }
    return parts;
}

std::pair<Pieces, Pieces> cutAt(const Gap& gap, const Pieces& pieces, const Direction& direction)
{
    std::pair<Pieces, Pieces> parts;
    for (const QRect& piece : pieces)
        ((piece.*direction.begin)() < gap.position ? parts.first : parts.second).push_back(piece);
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

bool onOneRow(const QRect& a, const QRect& b)
{
    const int overlap = std::min(a.bottom(), b.bottom()) - std::max(a.top(), b.top()) + 1;
    return overlap * 2 > std::min(a.height(), b.height());
}

/// Whether the two sides are read row by row: the pieces of one have their neighbors on the other,
/// and they are too short to be lines of running text.
bool isTable(const Pieces& left, const Pieces& right)
{
    const bool leftIsSmaller = left.size() < right.size();
    const Pieces& fewer = leftIsSmaller ? left : right;
    const Pieces& more = leftIsSmaller ? right : left;
    const auto paired = std::ranges::count_if(fewer, [&](const QRect& piece) {
        return std::ranges::any_of(more,
                                   [&](const QRect& other) { return onOneRow(piece, other); });
    });
    constexpr int runningText = 16; // heights
    const int shorter = std::min(meanWidth(left), meanWidth(right));
    return paired * 5 >= std::ssize(fewer) * 4 && shorter < runningText * medianHeight(fewer);
}

std::optional<Gap> widest(const std::vector<Gap>& all)
{
    const auto found = std::ranges::max_element(all, {}, &Gap::width);
    return found == all.end() ? std::nullopt : std::optional(*found);
}

/// The widest gap between two columns, each of two lines at least.
std::optional<Gap> columnGap(const Pieces& pieces)
{
    std::vector<Gap> possible;
    const int least = medianHeight(pieces) * 6 / 5;
    for (const Gap& gap : gaps(pieces, across)) {
        if (gap.width < least)
            continue;
        const auto [left, right] = cutAt(gap, pieces, across);
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
                return onOneRow(piece, other);
            });
        if (!isNext)
            lines.emplace_back();
        lines.back().push_back(piece);
    }
    for (auto line = lines.begin() + first; line != lines.end(); ++line)
        std::ranges::sort(*line, {}, &QRect::left);
}

/// The widest of the gaps between rows, with those that are as wide.
std::vector<Gap> rowGaps(const Pieces& pieces)
{
    std::vector<Gap> found = gaps(pieces, down);
    if (const auto most = widest(found))
        std::erase_if(found, [&](const Gap& gap) { return 10 * gap.width < 9 * most->width; });
    return found;
}

void addInOrder(const Pieces& pieces, std::vector<TextLine>& lines)
{
    const std::vector<Gap> rows = rowGaps(pieces);
    const std::optional<Gap> column = columnGap(pieces);
    if (column && (rows.empty() || column->width >= widest(rows)->width)) {
        const auto [left, right] = cutAt(*column, pieces, across);
        addInOrder(left, lines);
        addInOrder(right, lines);
    } else if (!rows.empty()) {
        for (const Pieces& part : cutAtAll(rows, pieces, down))
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
