#include "settings/view/WrappingLayout.h"

#include <algorithm>
#include <functional>
#include <numeric>

namespace driftbox {

namespace {

QRect surroundings(const std::vector<QRect>& places)
{
    return std::accumulate(places.begin(), places.end(), QRect(), std::bit_or());
}

} // namespace

WrappingLayout::WrappingLayout(QWidget* parent)
    : QLayout(parent)
{
}

WrappingLayout::~WrappingLayout() = default;

void WrappingLayout::addItem(QLayoutItem* item)
{
    m_items.emplace_back(item);
}

int WrappingLayout::count() const
{
    return static_cast<int>(m_items.size());
}

QLayoutItem* WrappingLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? m_items[static_cast<size_t>(index)].get() : nullptr;
}

QLayoutItem* WrappingLayout::takeAt(int index)
{
    if (!itemAt(index))
        return nullptr;
    QLayoutItem* item = m_items[static_cast<size_t>(index)].release();
    m_items.erase(m_items.begin() + index);
    return item;
}

QSize WrappingLayout::sizeHint() const
{
    return surroundings(places(QLAYOUTSIZE_MAX)).size().grownBy(contentsMargins());
}

QSize WrappingLayout::minimumSize() const
{
    QSize largest;
    for (const auto& item : m_items)
        largest = largest.expandedTo(item->minimumSize());
    return largest.grownBy(contentsMargins());
}

int WrappingLayout::heightForWidth(int width) const
{
    const QMargins margins = contentsMargins();
    return surroundings(places(width - margins.left() - margins.right())).height() + margins.top() +
           margins.bottom();
}

void WrappingLayout::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    const QRect room = rect.marginsRemoved(contentsMargins());
    const std::vector<QRect> itemPlaces = places(room.width());
    const int roomAbove = (room.height() - surroundings(itemPlaces).height()) / 2;
    const QPoint offset = room.topLeft() + QPoint(0, roomAbove);
    for (size_t index = 0; index < m_items.size(); ++index)
        m_items[index]->setGeometry(itemPlaces[index].translated(offset));
}

std::vector<QRect> WrappingLayout::places(int width) const
{
    std::vector<QRect> found;
    QPoint next;
    int lineHeight = 0;
    for (const auto& item : m_items) {
        const QSize size = item->sizeHint();
        if (next.x() > 0 && next.x() + size.width() > width) {
            next = {0, next.y() + lineHeight + spacing()};
            lineHeight = 0;
        }
        found.emplace_back(next, size);
        next.rx() += size.width() + spacing();
        lineHeight = std::max(lineHeight, size.height());
    }
    return found;
}

} // namespace driftbox
