#pragma once

#include "ui/list/RowDelegate.h"
#include "ui/list/RowPositions.h"

#include <optional>

#include <QtWidgets/QAbstractScrollArea>

namespace driftbox {

class OverlayScrollBar;
class SmoothScroller;

/// A list that works only on the rows that are to be seen, however many there are. A row is clicked
/// as a whole or on one of its buttons; the one that the keyboard acts on can be selected. The list
/// never takes the typing. Rows that come or go above leave what is on show where it is. Assistive
/// technology sees every row as an element with the row's buttons as its children.
class RowListView final : public QAbstractScrollArea
{
    Q_OBJECT

public:
    /// `rows` and `delegate` must outlive the view.
    RowListView(QAbstractItemModel& rows, RowDelegate& delegate, QWidget* parent);

    [[nodiscard]] QAbstractItemModel& rows() const { return m_rows; }
    [[nodiscard]] RowDelegate& delegate() const { return m_delegate; }

    [[nodiscard]] int selectedRow() const { return m_selectedRow; }
    /// Scrolls the row into view. Minus one selects none.
    void setSelectedRow(int row);
    /// Tells assistive technology of the selected row, as of what the user is at.
    void announceSelectedRow();

    void scrollToTop();
    /// How many of the rows that are on show now fit the view; at least one.
    [[nodiscard]] int rowsPerPage() const;

    /// In the viewport, wherever it is scrolled to.
    [[nodiscard]] QRect rowRect(int row) const;
    [[nodiscard]] std::vector<RowButton> buttons(int row) const;
    [[nodiscard]] bool isRevealed(int row) const;
    /// Draws the row again.
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
    /// A place that can be clicked.
    struct Target
    {
        int row = -1;
        int button = -1; ///< minus one is the row itself

        bool operator==(const Target&) const = default;
    };
    struct Press
    {
        QPersistentModelIndex row;
        int button;
    };

    void followRows();
    void handleRowsChanged();
    void updateScrollBar();
    void updateRows(int first, int last);
    [[nodiscard]] int scrollOffset() const;
    void rememberTopRow();
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
    QPersistentModelIndex m_topRow; ///< the first row on show; none at the very top
    int m_overhang = 0;             ///< how much of it is scrolled out of view
    int m_selectedRow = -1;
    std::optional<QPoint> m_pointer; ///< in the viewport
    Target m_target;                 ///< what is beneath the pointer
    std::optional<Press> m_press;
};

} // namespace driftbox
