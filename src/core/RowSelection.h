#pragma once

#include "platform/KeyPress.h"

#include <QtCore/QAbstractItemModel>

namespace driftbox {

/// The selected row of a list, which keyboard commands apply to. Exactly one row is selected unless
/// the list is empty: initially, and after a model reset, the first one. The selection follows its
/// row through insertions, removals and moves, except that the first position stays selected when
/// another row becomes the first. When the selected row is removed, its successor is selected.
class RowSelection : public QObject
{
    Q_OBJECT

public:
    /// `rows` must outlive the selection.
    explicit RowSelection(const QAbstractItemModel& rows, QObject* parent = nullptr);

    /// -1 while the list is empty.
    [[nodiscard]] int row() const { return m_row.isValid() ? m_row.row() : -1; }

    void selectFirst() { select(0); }
    void selectLast();
    /// Moves down by `steps` rows, or up if negative, clamped to the list.
    void moveBy(int steps);
    /// Handles the arrow and page keys and, only while the search field is empty, Home and End.
    /// Returns whether the key press was handled.
    bool moveByKey(const KeyPress& press, int rowsPerPage, bool isFieldEmpty);

Q_SIGNALS:
    /// Another row is selected, or the selected row has moved.
    void changed();

private:
    void select(int row);
    /// Restores a valid selection after rows were inserted, removed or moved.
    void reselect();

    const QAbstractItemModel& m_rows;
    QPersistentModelIndex m_row;
    int m_lastRow; ///< the selected row as of the last `changed`
};

} // namespace driftbox
