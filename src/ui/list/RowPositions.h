#pragma once

#include <cstddef>
#include <vector>

namespace driftbox {

/// Where rows of different heights lie, one beneath the other from 0 on. Lengths in points.
class RowPositions
{
public:
    /// `heightOf` gives the height of each of `count` rows.
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
    /// Of all rows together.
    [[nodiscard]] int height() const { return m_bottoms.empty() ? 0 : m_bottoms.back(); }

    /// `row` must exist; the row's last line is the one above `bottom`.
    [[nodiscard]] int top(int row) const { return row == 0 ? 0 : bottom(row - 1); }
    [[nodiscard]] int bottom(int row) const { return m_bottoms[static_cast<std::size_t>(row)]; }

    /// The row at `y`; minus one above the first and beneath the last row.
    [[nodiscard]] int rowAt(int y) const;

private:
    std::vector<int> m_bottoms;
};

} // namespace driftbox
