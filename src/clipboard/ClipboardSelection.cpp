#include "clipboard/ClipboardSelection.h"

#include <algorithm>

namespace driftbox {

ClipboardSelection::ClipboardSelection(const QAbstractItemModel& rows, QObject* parent)
    : QObject(parent)
    , m_rows(rows)
    , m_row(rows.index(0, 0))
    , m_lastRow(row())
{
    connect(&rows, &QAbstractItemModel::rowsInserted, this, &ClipboardSelection::settle);
    connect(&rows, &QAbstractItemModel::rowsRemoved, this, &ClipboardSelection::settle);
    connect(&rows, &QAbstractItemModel::rowsMoved, this, &ClipboardSelection::settle);
    connect(&rows, &QAbstractItemModel::modelReset, this, &ClipboardSelection::selectFirst);
}

void ClipboardSelection::selectLast()
{
    select(m_rows.rowCount() - 1);
}

void ClipboardSelection::moveBy(int steps)
{
    select(row() + steps);
}

void ClipboardSelection::select(int row)
{
    const QModelIndex wanted =
        m_rows.index(std::clamp(row, 0, std::max(0, m_rows.rowCount() - 1)), 0);
    const bool isSame = wanted == m_row && wanted.row() == m_lastRow;
    m_row = wanted;
    m_lastRow = wanted.row();
    if (!isSame)
        Q_EMIT changed();
}

void ClipboardSelection::settle()
{
    const bool isOvertaken = m_lastRow <= 0 && row() > 0;
    select(m_row.isValid() && !isOvertaken ? row() : m_lastRow);
}

} // namespace driftbox
