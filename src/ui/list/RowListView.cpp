#include "ui/list/RowListView.h"

#include "ui/controls/OverlayScrollBar.h"
#include "ui/controls/SmoothScroller.h"
#include "ui/controls/Tooltip.h"
#include "ui/list/RowListAccessible.h"

#include <algorithm>
#include <utility>

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QScrollBar>

namespace driftbox {

RowListView::RowListView(QAbstractItemModel& rows, RowDelegate& delegate, QWidget* parent)
    : QAbstractScrollArea(parent)
    , m_rows(rows)
    , m_delegate(delegate)
    , m_scroller(new SmoothScroller(*verticalScrollBar()))
    , m_scrollBar(new OverlayScrollBar(*verticalScrollBar(), this))
{
    RowListAccessible::install();
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);
    viewport()->setMouseTracking(true);
    connectRows();
    handleRowsChanged();
}

void RowListView::connectRows()
{
    connect(&m_rows, &QAbstractItemModel::rowsInserted, this, &RowListView::handleRowsChanged);
    connect(&m_rows, &QAbstractItemModel::rowsRemoved, this, &RowListView::handleRowsChanged);
    connect(&m_rows, &QAbstractItemModel::rowsMoved, this, &RowListView::handleRowsChanged);
    connect(&m_rows, &QAbstractItemModel::modelReset, this, [this] {
        m_press.reset();
        handleRowsChanged();
        scrollToTop();
    });
    connect(&m_rows, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex& first, const QModelIndex& last) {
                updateRows(first.row(), last.row());
            });
}

void RowListView::handleRowsChanged()
{
    m_positions.assign(m_rows.rowCount(), [this](int row) { return m_delegate.heightOfRow(row); });
    m_selectedRow = std::min(m_selectedRow, m_positions.count() - 1);
    // Read before a change of the scroll bar's range modifies its value.
    const int offset =
        m_topRow.isValid() ? m_positions.top(m_topRow.row()) + m_topRowOffset : scrollOffset();
    updateScrollBar();
    verticalScrollBar()->setValue(offset);
    saveTopRow();
    updateTarget();
    viewport()->update();
}

void RowListView::updateScrollBar()
{
    const int page = viewport()->height();
    verticalScrollBar()->setPageStep(page);
    verticalScrollBar()->setRange(0, std::max(0, m_positions.height() - page));
}

int RowListView::scrollOffset() const
{
    return verticalScrollBar()->value();
}

void RowListView::saveTopRow()
{
    const int offset = scrollOffset();
    const int row = offset > 0 ? m_positions.rowAt(offset) : -1;
    m_topRow = m_rows.index(row, 0);
    m_topRowOffset = row < 0 ? 0 : offset - m_positions.top(row);
}

void RowListView::setSelectedRow(int row)
{
    const int previous = std::exchange(m_selectedRow, row);
    updateRow(previous);
    updateRow(row);
    if (row < 0 || row >= m_positions.count())
        return;
    m_scroller->stop();
    const int offset = std::min(scrollOffset(), m_positions.top(row));
    verticalScrollBar()->setValue(std::max(offset, m_positions.bottom(row) - viewport()->height()));
}

void RowListView::announceSelectedRow()
{
    RowListAccessible::announce(*this, m_selectedRow);
}

void RowListView::scrollToTop()
{
    m_scroller->stop();
    verticalScrollBar()->setValue(0);
}

int RowListView::rowsPerPage() const
{
    const int first = std::max(0, m_positions.rowAt(scrollOffset()));
    const int below = m_positions.rowAt(scrollOffset() + viewport()->height());
    const int last = below < 0 ? m_positions.count() : below;
    return std::max(1, last - first - 1);
}

QRect RowListView::rowRect(int row) const
{
    const int top = m_positions.top(row);
    return {0, top - scrollOffset(), viewport()->width(), m_positions.bottom(row) - top};
}

std::vector<RowButton> RowListView::buttons(int row) const
{
    return m_delegate.buttons(m_rows.index(row, 0), rowRect(row).size());
}

bool RowListView::isRevealed(int row) const
{
    return row == m_selectedRow || row == m_target.row;
}

void RowListView::updateRow(int row)
{
    updateRows(row, row);
}

void RowListView::updateRows(int first, int last)
{
    first = std::max(first, 0);
    last = std::min(last, m_positions.count() - 1);
    if (first <= last)
        viewport()->update(rowRect(first).united(rowRect(last)));
}

RowState RowListView::stateOf(int row) const
{
    RowState state;
    state.hasPointer = row == m_target.row;
    state.isSelected = row == m_selectedRow;
    if (state.hasPointer)
        state.buttonUnderPointer = m_target.button;
    if (m_press && m_press->row.row() == row && state.hasPointer &&
        m_press->button == m_target.button) {
        state.pressedButton = m_press->button;
        state.isPressed = m_press->button < 0;
    }
    return state;
}

void RowListView::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    const QRect area = event->rect();
    const int first = m_positions.rowAt(area.top() + scrollOffset());
    for (int row = first; row >= 0 && row < m_positions.count(); ++row) {
        const QRect rect = rowRect(row);
        if (rect.top() > area.bottom())
            break;
        m_delegate.paint(painter, rect, m_rows.index(row, 0), stateOf(row));
    }
}

void RowListView::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    updateScrollBar();
    m_scrollBar->placeIn(rect());
}

void RowListView::hideEvent(QHideEvent* event)
{
    QAbstractScrollArea::hideEvent(event);
    m_scroller->stop();
    m_press.reset();
    setPointer({}); // hiding sends no leave event
}

void RowListView::scrollContentsBy(int, int)
{
    saveTopRow();
    updateTarget();
    viewport()->update();
}

void RowListView::wheelEvent(QWheelEvent* event)
{
    m_scroller->handle(*event);
}

RowListView::Target RowListView::targetAt(QPoint position) const
{
    if (!viewport()->rect().contains(position))
        return {};
    const int row = m_positions.rowAt(position.y() + scrollOffset());
    if (row < 0)
        return {};
    const QPoint inRow = position - rowRect(row).topLeft();
    const std::vector<RowButton> rowButtons = buttons(row);
    const auto found = std::ranges::find_if(
        rowButtons, [inRow](const RowButton& button) { return button.rect.contains(inRow); });
    return {row, found == rowButtons.end() ? -1 : static_cast<int>(found - rowButtons.begin())};
}

void RowListView::setPointer(std::optional<QPoint> position)
{
    m_pointer = position;
    updateTarget();
}

// The target also changes when rows move under a resting pointer.
void RowListView::updateTarget()
{
    const Target target = m_pointer ? targetAt(*m_pointer) : Target();
    const Target previous = std::exchange(m_target, target);
    if (previous == target)
        return;
    updateRow(previous.row);
    updateRow(target.row);
    Tooltip::dismiss(*window());
}

void RowListView::mousePressEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    const Target target = targetAt(position);
    // A touch has no hover before it, so it may hit a button that was not visible: ignore that.
    const bool wasVisible = target.button < 0 || isRevealed(target.row) ||
                            buttons(target.row)[static_cast<size_t>(target.button)].visibility ==
                                RowButton::Visibility::always;
    setPointer(position);
    if (event->button() != Qt::LeftButton || target.row < 0 || !wasVisible)
        return;
    m_press = Press{m_rows.index(target.row, 0), target.button};
    updateRow(target.row);
}

void RowListView::mouseMoveEvent(QMouseEvent* event)
{
    setPointer(event->position().toPoint());
}

void RowListView::mouseReleaseEvent(QMouseEvent* event)
{
    setPointer(event->position().toPoint());
    if (event->button() != Qt::LeftButton || !m_press)
        return;
    const Press press = *std::exchange(m_press, std::nullopt);
    updateRow(press.row.row());
    if (!press.row.isValid() || Target{press.row.row(), press.button} != m_target)
        return;
    if (press.button < 0)
        m_delegate.pick(press.row);
    else if (buttons(m_target.row)[static_cast<size_t>(press.button)].isEnabled)
        m_delegate.press(press.row, press.button);
}

// Ignored, because after the first click another row may have moved to this position.
void RowListView::mouseDoubleClickEvent(QMouseEvent*)
{
}

bool RowListView::viewportEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::Enter:
        setPointer(static_cast<QEnterEvent*>(event)->position().toPoint());
        break;
    case QEvent::Leave:
        setPointer({});
        break;
    case QEvent::ToolTip:
        showTooltip();
        return true;
    default:
        break;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void RowListView::showTooltip()
{
    if (m_target.row < 0 || m_press)
        return;
    const QPoint origin = viewport()->mapTo(window(), QPoint());
    if (m_target.button < 0) {
        constexpr QSize pointerSize(1, 18);
        const QRect pointer(*m_pointer + origin, pointerSize);
        return Tooltip::present(*window(), pointer, m_delegate.help());
    }
    const RowButton button = buttons(m_target.row)[static_cast<size_t>(m_target.button)];
    const QPoint inWindow = rowRect(m_target.row).topLeft() + origin;
    Tooltip::present(*window(), button.rect.translated(inWindow), button.help);
}

} // namespace driftbox
