#pragma once

#include <cstddef>
#include <vector>

namespace driftbox {

/// The vertical positions of stacked rows with different heights, starting at 0. Lengths are in
/// points.
class RowPositions
{
public:
    /// `heightOf` returns the height of a row, for each of `count` rows.
    template <typename HeightOf>
    void assign(int count, HeightOf heightOf)
    {
        m_bottoms.clear();
        m_bottoms.reserve(static_cast<std::size_t>(count));
        int bottom = 0;
        for (int row = 0; row < count; ++row) {
            bottom += heightOf(row);
            m_bottoms.push_back(bottom);
        }
    }

    [[nodiscard]] int count() const { return static_cast<int>(m_bottoms.size()); }
    /// The total height.
    [[nodiscard]] int height() const { return m_bottoms.empty() ? 0 : m_bottoms.back(); }

    /// `row` must exist. `bottom` is exclusive.
    [[nodiscard]] int top(int row) const { return row == 0 ? 0 : bottom(row - 1); }
    [[nodiscard]] int bottom(int row) const { return m_bottoms[static_cast<std::size_t>(row)]; }

    /// The row at `y`; -1 above the first row and below the last one.
    [[nodiscard]] int rowAt(int y) const;

private:
    std::vector<int> m_bottoms;
};

} // namespace driftbox
