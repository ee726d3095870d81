#pragma once

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QPersistentModelIndex>
#include <QtWidgets/QAccessibleWidget>

namespace driftbox {

class RowListView;

/// A list of rows as assistive technology sees it. Its children are made when they are asked for.
class RowListAccessible final : public QAccessibleWidget
{
public:
    /// From now on lists of rows are seen like this. Once is enough, more does no harm.
    static void install();
    /// Tells that the user is at `row` of `view` now.
    static void announce(RowListView& view, int row);
    /// Null when the view's element comes from another factory.
    [[nodiscard]] static const RowListAccessible* of(RowListView& view);

    explicit RowListAccessible(RowListView& view);
    ~RowListAccessible() override;

    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int row) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;

private:
    using RowIds = QHash<QPersistentModelIndex, QAccessible::Id>;

    void follow(const QAbstractItemModel& rows);
    void tell(QAccessible::Event event, int row) const;
    void forgetLostRows();

    RowListView& m_view;
    QObject m_context; ///< ends the connections
    mutable RowIds m_rows;
};

} // namespace driftbox
