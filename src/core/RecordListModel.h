#pragma once

#include <algorithm>
#include <utility>
#include <vector>

#include <QtCore/QAbstractListModel>
#include <QtCore/QSet>

namespace driftbox {

/// A list model of records, plain values with an `id`. A new list of records is applied as
/// insertions, removals, moves and changes of individual rows; if it differs in too many rows or
/// contains duplicate ids, the model is reset instead.
template <typename Record>
class RecordListModel : public QAbstractListModel
{
public:
    using Id = decltype(Record::id);
    using Records = std::vector<Record>;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const final
    {
        return parent.isValid() ? 0 : static_cast<int>(m_records.size());
    }

    /// The record of a row; `row` must exist.
    [[nodiscard]] const Record& record(int row) const
    {
        return m_records[static_cast<size_t>(row)];
    }

    /// -1 if there is no row with this record.
    [[nodiscard]] int rowOf(const Id& id) const
    {
        const auto found = std::ranges::find(m_records, id, &Record::id);
        return found == m_records.end() ? -1 : static_cast<int>(found - m_records.begin());
    }

protected:
    explicit RecordListModel(Records records, QObject* parent)
        : QAbstractListModel(parent)
        , m_records(std::move(records))
    {
    }

    /// Replaces all records by resetting the model.
    void resetRecords(Records records)
    {
        beginResetModel();
        m_records = std::move(records);
        endResetModel();
    }

    /// Applies a changed list of records. `looksSame(old, new)` returns whether a record's row
    /// looks the same as before.
    template <typename LooksSame>
    void setRecords(const Records& records, LooksSame looksSame)
    {
        const QSet<Id> known = idsOf(m_records);
        const QSet<Id> wanted = idsOf(records);
        if (hasDuplicates(known, m_records) || hasDuplicates(wanted, records) ||
            countNotIn(wanted, m_records) + countNotIn(known, records) > maxRowChanges) {
            resetRecords(records);
            return;
        }
        removeRowsNotIn(wanted);
        moveAndInsertRows(records, known);
        updateRows(records, looksSame);
    }

private:
    // Beyond this number of insertions and removals, a reset is cheaper.
    static constexpr auto maxRowChanges = 64;

    static QSet<Id> idsOf(const Records& records)
    {
        QSet<Id> ids;
        ids.reserve(static_cast<qsizetype>(records.size()));
        for (const Record& record : records)
            ids.insert(record.id);
        return ids;
    }

    // Only a foreign manifest has duplicate ids. They make it impossible to match old and new rows.
    static bool hasDuplicates(const QSet<Id>& ids, const Records& records)
    {
        return static_cast<size_t>(ids.size()) < records.size();
    }

    static std::ptrdiff_t countNotIn(const QSet<Id>& ids, const Records& records)
    {
        return std::ranges::count_if(
            records, [&ids](const Record& record) { return !ids.contains(record.id); });
    }

    void removeRowsNotIn(const QSet<Id>& wanted)
    {
        for (int row = rowCount() - 1; row >= 0; --row) {
            if (wanted.contains(record(row).id))
                continue;
            beginRemoveRows({}, row, row);
            m_records.erase(m_records.begin() + row);
            endRemoveRows();
        }
    }

    void moveAndInsertRows(const Records& records, const QSet<Id>& known)
    {
        for (int row = 0; row < static_cast<int>(records.size()); ++row) {
            const Record& wanted = records[static_cast<size_t>(row)];
            if (row < rowCount() && record(row).id == wanted.id)
                continue;
            if (!known.contains(wanted.id)) {
                beginInsertRows({}, row, row);
                m_records.insert(m_records.begin() + row, wanted);
                endInsertRows();
                continue;
            }
            const int from = rowOf(wanted.id);
            beginMoveRows({}, from, from, {}, row);
            std::rotate(m_records.begin() + row, m_records.begin() + from,
                        m_records.begin() + from + 1);
            endMoveRows();
        }
    }

    template <typename LooksSame>
    void updateRows(const Records& records, LooksSame looksSame)
    {
        for (int row = 0; row < rowCount(); ++row) {
            Record& current = m_records[static_cast<size_t>(row)];
            const Record& wanted = records[static_cast<size_t>(row)];
            if (looksSame(current, wanted))
                continue;
            current = wanted;
            Q_EMIT dataChanged(index(row), index(row));
        }
    }

    Records m_records;
};

} // namespace driftbox
