#include "ui/list/RowLayout.h"

#include <algorithm>

namespace driftbox {

namespace {

constexpr int leadingPadding = 14;
constexpr int trailingPadding = 12;
constexpr int columnSpacing = 12;
constexpr int buttonSide = 22;
constexpr int buttonSpacing = 4;
constexpr int timeSpacing = 4; // to the mark
constexpr int maxActions = 3;
constexpr int highlightInset = 7;

} // namespace

RowLayout::RowLayout(QSize size, int timeWidth)
    : m_size(size.width(), size.height() - dividerHeight)
    , m_timeWidth(timeWidth)
{
}

// The time and the actions below it are vertically centered together.
int RowLayout::trailingTop() const
{
    return (m_size.height() - 2 * buttonSide) / 2;
}

QRect RowLayout::mark() const
{
    return {m_size.width() - trailingPadding - buttonSide, trailingTop(), buttonSide, buttonSide};
}

QRect RowLayout::time() const
{
    const QRect mark = this->mark();
    return {mark.left() - timeSpacing - m_timeWidth, mark.top(), m_timeWidth, mark.height()};
}

std::vector<QRect> RowLayout::actions(size_t count) const
{
    std::vector<QRect> rects;
    QRect rect = mark().translated(0, buttonSide);
    for (size_t i = 0; i < count; ++i) {
        rects.push_back(rect);
        rect.translate(-buttonSide - buttonSpacing, 0);
    }
    std::ranges::reverse(rects);
    return rects;
}

QRect RowLayout::content() const
{
    constexpr int actionsWidth = maxActions * buttonSide + (maxActions - 1) * buttonSpacing;
    const int actionsLeft = m_size.width() - trailingPadding - actionsWidth;
    const int right = std::min(time().left(), actionsLeft) - columnSpacing;
    return {leadingPadding, 0, right - leadingPadding, m_size.height()};
}

QRect RowLayout::picture(QSize size) const
{
    return {leadingPadding, (m_size.height() - size.height()) / 2, size.width(), size.height()};
}

QRect RowLayout::divider() const
{
    return {leadingPadding, m_size.height(), m_size.width() - leadingPadding - trailingPadding,
            dividerHeight};
}

QRect RowLayout::highlight() const
{
    return QRect({}, m_size).adjusted(highlightInset, 1, -highlightInset, -1);
}

} // namespace driftbox
