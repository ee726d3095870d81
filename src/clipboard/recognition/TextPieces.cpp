#include "clipboard/recognition/TextPieces.h"

#include "clipboard/recognition/ConnectedComponents.h"

#include <algorithm>
#include <optional>
#include <span>
#include <utility>

namespace driftbox {

namespace {

constexpr int minHeight = 4;         // pixels, of a mark that can start a piece
constexpr int bandHeight = 16;       // pixels
constexpr size_t maxMarks = 300'000; // a large screen full of dense text has about 100,000
constexpr size_t maxPieces = 6'000;  // a large screen full of small cells has about 3,000

int gapBetween(const QRect& left, const QRect& right)
{
    return right.left() - left.right() - 1;
}

int verticalOverlap(const QRect& a, const QRect& b)
{
    return std::min(a.bottom(), b.bottom()) - std::max(a.top(), b.top()) + 1;
}

/// A piece that grows to the right, mark by mark.
class GrowingPiece
{
public:
    explicit GrowingPiece(const QRect& mark)
        : m_box(mark)
        , m_height(mark.height())
    {
        m_tail.push_back(mark);
    }

    [[nodiscard]] const QRect& box() const { return m_box; }

    /// The maximum gap that a piece of this height bridges.
    [[nodiscard]] int maxGap() const { return m_height; }

    /// The rows in which the next mark is expected: those of the last few marks, because a line may
    /// be skewed.
    [[nodiscard]] QRect tail() const
    {
        QRect tail;
        for (const QRect& mark : m_tail)
            tail |= mark;
        return tail;
    }

    [[nodiscard]] bool accepts(const QRect& mark) const
    {
        const int slack = 2 * mark.height() <= m_height ? m_height / 4 : 0;
        const QRect rows = tail().adjusted(0, -slack, 0, slack);
        const int smaller = std::min(rows.height(), mark.height());
        return 2 * verticalOverlap(rows, mark) >= smaller &&
               gapBetween(m_box, mark) <= std::max(maxGap(), mark.height()) &&
               mark.height() * 2 <= m_height * 5;
    }

    [[nodiscard]] bool acceptsSmall(const QRect& mark) const
    {
        const int slack = m_height / 4;
        const QRect rows = m_box.adjusted(-m_height, -slack, m_height * 3 / 4, slack);
        return rows.contains(mark.center()) && mark.height() <= m_height;
    }

    void add(const QRect& mark)
    {
        m_box |= mark;
        m_height = std::max(m_height, mark.height());
        if (m_tail.size() == tailLength)
            m_tail.erase(m_tail.begin());
        m_tail.push_back(mark);
    }

    void join(const GrowingPiece& other) { m_box |= other.m_box; }
    void addSmall(const QRect& mark) { m_box |= mark; }

private:
    static constexpr size_t tailLength = 6;

    QRect m_box;
    int m_height;
    std::vector<QRect> m_tail;
};

/// A spatial index of the pieces by row.
class PiecesByRow
{
public:
    explicit PiecesByRow(int height)
        : m_bands(static_cast<size_t>(height / bandHeight + 1))
    {
    }

    std::vector<size_t>& bandAt(int y)
    {
        const auto last = static_cast<int>(m_bands.size()) - 1;
        return m_bands[static_cast<size_t>(std::clamp(y / bandHeight, 0, last))];
    }

    void put(size_t piece, const QRect& rows)
    {
        for (int y = rows.top() / bandHeight; y <= rows.bottom() / bandHeight; ++y) {
            auto& band = bandAt(y * bandHeight);
            if (std::ranges::find(band, piece) == band.end())
                band.push_back(piece);
        }
    }

private:
    std::vector<std::vector<size_t>> m_bands;
};

class PieceFinder
{
public:
    explicit PieceFinder(int height)
        : m_index(height)
    {
    }

    /// `marks` from left to right.
    std::vector<QRect> find(std::span<const QRect> marks)
    {
        std::vector<QRect> early; // small marks to the left of their piece
        for (const QRect& mark : marks) {
            if (mark.height() >= minHeight)
                addToNearest(mark);
            else if (!addSmall(mark))
                early.push_back(mark);
        }
        for (const QRect& mark : early)
            addSmall(mark);
        std::vector<QRect> boxes;
        for (const GrowingPiece& piece : m_pieces)
            boxes.push_back(piece.box());
        return boxes;
    }

private:
    void addToNearest(const QRect& mark)
    {
        std::optional<size_t> nearest;
        for (int y = mark.top() / bandHeight; y <= mark.bottom() / bandHeight; ++y) {
            auto& band = m_index.bandAt(y * bandHeight);
            std::erase_if(band, [&](size_t i) {
                return gapBetween(m_pieces[i].box(), mark) > bandHeight + 8 * m_pieces[i].maxGap();
            });
            for (const size_t i : band) {
                if (m_pieces[i].accepts(mark) &&
                    (!nearest || verticalOverlap(m_pieces[i].tail(), mark) >
                                     verticalOverlap(m_pieces[*nearest].tail(), mark)))
                    nearest = i;
            }
        }
        if (!nearest) {
            nearest = m_pieces.size();
            m_pieces.emplace_back(mark);
        } else {
            m_pieces[*nearest].add(mark);
        }
        m_index.put(*nearest, m_pieces[*nearest].box());
    }

    bool addSmall(const QRect& mark)
    {
        for (const size_t i : m_index.bandAt(mark.center().y())) {
            if (m_pieces[i].acceptsSmall(mark)) {
                m_pieces[i].addSmall(mark);
                return true;
            }
        }
        return false;
    }

    PiecesByRow m_index;
    std::vector<GrowingPiece> m_pieces;
};

/// Whether two pieces are in the same row without a wide gap between them.
bool belongTogether(const QRect& a, const QRect& b)
{
    if (2 * verticalOverlap(a, b) <= std::min(a.height(), b.height()))
        return false;
    const int gap = a.left() < b.left() ? gapBetween(a, b) : gapBetween(b, a);
    return gap <= std::max(a.height(), b.height());
}

/// Joins pieces that became neighbors only as they grew.
std::vector<QRect> joined(std::vector<QRect> boxes)
{
    size_t before = 0;
    do {
        before = boxes.size();
        std::vector<QRect> separate;
        for (const QRect& box : boxes) {
            const auto other = std::ranges::find_if(
                separate, [&](const QRect& piece) { return belongTogether(piece, box); });
            if (other == separate.end())
                separate.push_back(box);
            else
                *other |= box;
        }
        boxes = std::move(separate);
    } while (boxes.size() < before);
    return boxes;
}

} // namespace

std::vector<QRect> textPieces(const QImage& marks)
{
    const ConnectedComponents components(marks);
    if (components.components().size() > maxMarks)
        return {};
    std::vector<QRect> boxes;
    for (const ConnectedComponents::Component& component : components.components())
        boxes.push_back(component.box);
    std::ranges::sort(boxes, {}, [](const QRect& box) { return std::pair(box.left(), box.top()); });
    const std::vector<QRect> pieces = PieceFinder(marks.height()).find(boxes);
    return pieces.size() > maxPieces ? std::vector<QRect>() : joined(pieces);
}

} // namespace driftbox
