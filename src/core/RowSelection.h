#pragma once

#include "platform/KeyPress.h"

#include <QtCore/QAbstractItemModel>

namespace driftbox {

/// The row of a list that the keyboard acts on: always one while there is any. It begins at the
/// first row and begins there again when the list is replaced as a whole. It stays with its row
/// when others come, go or move; but the first row stays selected when another one becomes the
/// first. When the selected row goes, the one that takes its place is selected.
class RowSelection : public QObject
{
    Q_OBJECT

public:
    /// `rows` must outlive the selection.
    explicit RowSelection(const QAbstractItemModel& rows, QObject* parent = nullptr);

    /// Minus one while there is no row.
    [[nodiscard]] int row() const { return m_row.isValid() ? m_row.row() : -1; }

    void selectFirst() { select(0); }
    void selectLast();
    /// `steps` rows down, or up when negative, as far as there are rows.
    void moveBy(int steps);
    /// Moves as far as the arrows, the page keys, Home or End go; those last two are the list's
    /// only while the search field is empty. Returns whether the key press was one of these. A page
    /// has `rowsPerPage` rows.
    bool moveByKey(const KeyPress& press, int rowsPerPage, bool fieldIsEmpty);

Q_SIGNALS:
    /// Another row is selected, or the selected row is in another place.
    void changed();

private:
    void select(int row);
    /// Whatever happened to the rows, one of them is selected.
    void settle();

    const QAbstractItemModel& m_rows;
    QPersistentModelIndex m_row;
    int m_lastRow; ///< where the selected row was when that was last told
};

} // namespace driftbox
