#pragma once

#include <vector>

#include <QtCore/QRect>
#include <QtCore/QSize>

namespace driftbox {

/// Where the parts of a row of a page's list lie, in points within the row.
class RowLayout
{
public:
    static constexpr int textRowHeight = 52;
    static constexpr int imageRowHeight = 76;
    static constexpr int dividerHeight = 1; ///< beneath every row, and part of its size here
    static constexpr int cornerRadius = 6;  ///< of pictures

    /// `size` includes the divider. `timeWidth` is what the time needs.
    RowLayout(QSize size, int timeWidth);

    /// The text or the picture.
    [[nodiscard]] QRect content() const;
    /// A picture of that size, in the middle of the row's height.
    [[nodiscard]] QRect picture(QSize size) const;
    [[nodiscard]] QRect time() const;
    /// What stands behind the time.
    [[nodiscard]] QRect mark() const;
    /// The actions beneath the time, from left to right.
    [[nodiscard]] std::vector<QRect> actions(size_t count) const;
    [[nodiscard]] QRect divider() const;
    /// What is filled while the row is selected or has the pointer.
    [[nodiscard]] QRect highlight() const;

private:
    [[nodiscard]] int trailingTop() const;

    QSize m_size; ///< without the divider
    int m_timeWidth;
};

} // namespace driftbox
