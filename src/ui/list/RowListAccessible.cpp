#include "ui/list/RowListAccessible.h"

#include "ui/list/RowAccessible.h"
#include "ui/list/RowListView.h"

#include <utility>

namespace driftbox {

namespace {

QAccessibleInterface* makeRowListInterface(const QString&, QObject* object)
{
    auto* view = qobject_cast<RowListView*>(object);
    return view ? new RowListAccessible(*view) : nullptr;
}

} // namespace

void RowListAccessible::install()
{
    QAccessible::installFactory(makeRowListInterface); // does nothing when it is installed
}

void RowListAccessible::announce(RowListView& view, int row)
{
    if (!QAccessible::isActive() || row < 0)
        return;
    if (const RowListAccessible* list = of(view))
        list->tell(QAccessible::Focus, row);
}

const RowListAccessible* RowListAccessible::of(RowListView& view)
{
    return dynamic_cast<const RowListAccessible*>(QAccessible::queryAccessibleInterface(&view));
}

RowListAccessible::RowListAccessible(RowListView& view)
    : QAccessibleWidget(&view, QAccessible::List)
    , m_view(view)
{
    follow(view.rows());
}

RowListAccessible::~RowListAccessible()
{
    for (const QAccessible::Id id : std::as_const(m_rows))
        QAccessible::deleteAccessibleInterface(id);
}

void RowListAccessible::follow(const QAbstractItemModel& rows)
{
    QObject::connect(&rows, &QAbstractItemModel::rowsInserted, &m_context,
                     [this](const QModelIndex&, int first, int last) {
                         for (int row = first; row <= last; ++row)
                             tell(QAccessible::ObjectCreated, row);
                     });
    QObject::connect(&rows, &QAbstractItemModel::rowsAboutToBeRemoved, &m_context,
                     [this](const QModelIndex&, int first, int last) {
                         for (int row = first; row <= last; ++row)
                             tell(QAccessible::ObjectDestroyed, row);
                     });
    QObject::connect(&rows, &QAbstractItemModel::rowsRemoved, &m_context,
                     [this] { forgetLostRows(); });
    QObject::connect(&rows, &QAbstractItemModel::modelReset, &m_context,
                     [this] { forgetLostRows(); });
}

void RowListAccessible::tell(QAccessible::Event event, int row) const
{
    QAccessibleEvent update(child(row), event);
    QAccessible::updateAccessibility(&update);
}

void RowListAccessible::forgetLostRows()
{
    m_rows.removeIf([](const RowIds::iterator& entry) {
        if (entry.key().isValid())
            return false;
        QAccessible::deleteAccessibleInterface(entry.value());
        return true;
    });
}

int RowListAccessible::childCount() const
{
    return m_view.rows().rowCount();
}

QAccessibleInterface* RowListAccessible::child(int row) const
{
    const QPersistentModelIndex index = m_view.rows().index(row, 0);
    if (!index.isValid())
        return nullptr;
    auto found = m_rows.constFind(index);
    if (found == m_rows.cend()) {
        auto* made = new RowAccessible(m_view, index);
        found = m_rows.insert(index, QAccessible::registerAccessibleInterface(made));
    }
    return QAccessible::accessibleInterface(*found);
}

int RowListAccessible::indexOfChild(const QAccessibleInterface* child) const
{
    const auto* row = dynamic_cast<const RowAccessible*>(child);
    return row ? row->row() : -1;
}

QAccessibleInterface* RowListAccessible::childAt(int x, int y) const
{
    const QPoint place = m_view.viewport()->mapFromGlobal(QPoint(x, y));
    for (int row = 0; row < childCount(); ++row) {
        if (m_view.rowRect(row).contains(place))
            return child(row);
    }
    return nullptr;
}

} // namespace driftbox
