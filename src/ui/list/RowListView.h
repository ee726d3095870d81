#pragma once

#include "ui/list/RowDelegate.h"
#include "ui/list/RowPositions.h"

#include <optional>

#include <QtWidgets/QAbstractScrollArea>

namespace driftbox {

class OverlayScrollBar;
class SmoothScroller;

/// A list view that paints only the visible rows, however many there are. A click hits a row as a
/// whole or one of its buttons; one row can be selected for the keyboard. The list never takes the
/// focus. Inserting or removing rows above does not move the visible ones. Assistive technology
/// sees each row as an element with the row's buttons as children.
class RowListView final : public QAbstractScrollArea
{
    Q_OBJECT

public:
    /// `rows` and `delegate` must outlive the view.
    RowListView(QAbstractItemModel& rows, RowDelegate& delegate, QWidget* parent);

    [[nodiscard]] QAbstractItemModel& rows() const { return m_rows; }
    [[nodiscard]] RowDelegate& delegate() const { return m_delegate; }

    [[nodiscard]] int selectedRow() const { return m_selectedRow; }
    /// Selects a row and scrolls it into view; -1 clears the selection.
    void setSelectedRow(int row);
    /// Reports the selected row to assistive technology as focused.
    void announceSelectedRow();

    void scrollToTop();
    /// The number of rows that fit in the view at the current scroll position; at least one.
    [[nodiscard]] int rowsPerPage() const;

    /// The row's rectangle in the viewport, even if it is scrolled out of view.
    [[nodiscard]] QRect rowRect(int row) const;
    [[nodiscard]] std::vector<RowButton> buttons(int row) const;
    [[nodiscard]] bool isRevealed(int row) const;
    /// Schedules a repaint of the row.
    void updateRow(int row);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    /// A clickable element.
    struct Target
    {
        int row = -1;
        int button = -1; ///< -1 for the row itself

        bool operator==(const Target&) const = default;
    };
    struct Press
    {
        QPersistentModelIndex row;
        int button;
    };

    void connectRows();
    void handleRowsChanged();
    void updateScrollBar();
    void updateRows(int first, int last);
    [[nodiscard]] int scrollOffset() const;
    void saveTopRow();
    [[nodiscard]] Target targetAt(QPoint position) const;
    void setPointer(std::optional<QPoint> position);
    void updateTarget();
    void showTooltip();
    [[nodiscard]] RowState stateOf(int row) const;

    QAbstractItemModel& m_rows;
    RowDelegate& m_delegate;
    RowPositions m_positions;
    SmoothScroller* m_scroller;
    OverlayScrollBar* m_scrollBar;
    QPersistentModelIndex m_topRow; ///< the first visible row; invalid if scrolled to the top
    int m_topRowOffset = 0;         ///< the height of its part that is scrolled out of view
    int m_selectedRow = -1;
    std::optional<QPoint> m_pointer; ///< in the viewport
    Target m_target;                 ///< the element under the pointer
    std::optional<Press> m_press;
};

} // namespace driftbox
