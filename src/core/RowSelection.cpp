#include "core/RowSelection.h"

#include <algorithm>

namespace driftbox {

RowSelection::RowSelection(const QAbstractItemModel& rows, QObject* parent)
    : QObject(parent)
    , m_rows(rows)
    , m_row(rows.index(0, 0))
    , m_lastRow(row())
{
    connect(&rows, &QAbstractItemModel::rowsInserted, this, &RowSelection::reselect);
    connect(&rows, &QAbstractItemModel::rowsRemoved, this, &RowSelection::reselect);
    connect(&rows, &QAbstractItemModel::rowsMoved, this, &RowSelection::reselect);
    connect(&rows, &QAbstractItemModel::modelReset, this, &RowSelection::selectFirst);
}

void RowSelection::selectLast()
{
    select(m_rows.rowCount() - 1);
}

void RowSelection::moveBy(int steps)
{
    select(row() + steps);
}

bool RowSelection::moveByKey(const KeyPress& press, int rowsPerPage, bool isFieldEmpty)
{
    if ((press.modifiers & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    switch (press.key) {
    case Qt::Key_Up:
        moveBy(-1);
        return true;
    case Qt::Key_Down:
        moveBy(1);
        return true;
    case Qt::Key_PageUp:
        moveBy(-rowsPerPage);
        return true;
    case Qt::Key_PageDown:
        moveBy(rowsPerPage);
        return true;
    case Qt::Key_Home:
        if (isFieldEmpty)
            selectFirst();
        return isFieldEmpty;
    case Qt::Key_End:
        if (isFieldEmpty)
            selectLast();
        return isFieldEmpty;
    default:
        return false;
    }
}

void RowSelection::select(int row)
{
    const QModelIndex wanted =
        m_rows.index(std::clamp(row, 0, std::max(0, m_rows.rowCount() - 1)), 0);
    const bool isSame = wanted == m_row && wanted.row() == m_lastRow;
    m_row = wanted;
    m_lastRow = wanted.row();
    if (!isSame)
        Q_EMIT changed();
}

void RowSelection::reselect()
{
    const bool isFirstDisplaced = m_lastRow <= 0 && row() > 0;
    select(m_row.isValid() && !isFirstDisplaced ? row() : m_lastRow);
}

} // namespace driftbox
