#pragma once

#include <vector>

#include <QtCore/QRect>
#include <QtCore/QSize>

namespace driftbox {

/// The geometry of a list row, in points relative to the row.
class RowLayout
{
public:
    static constexpr int textRowHeight = 52;
    static constexpr int imageRowHeight = 76;
    static constexpr int dividerHeight = 1; ///< at the bottom of every row, included in its size
    static constexpr int cornerRadius = 6;  ///< of pictures

    /// `size` includes the divider. `timeWidth` is the width of the time.
    RowLayout(QSize size, int timeWidth);

    /// The text or the picture.
    [[nodiscard]] QRect content() const;
    /// The rectangle for a picture of this size, vertically centered.
    [[nodiscard]] QRect picture(QSize size) const;
    [[nodiscard]] QRect time() const;
    /// The mark to the right of the time.
    [[nodiscard]] QRect mark() const;
    /// The actions below the time, from left to right.
    [[nodiscard]] std::vector<QRect> actions(size_t count) const;
    [[nodiscard]] QRect divider() const;
    /// The area that is filled while the row is selected or hovered.
    [[nodiscard]] QRect highlight() const;

private:
    [[nodiscard]] int trailingTop() const;

    QSize m_size; ///< without the divider
    int m_timeWidth;
};

} // namespace driftbox
