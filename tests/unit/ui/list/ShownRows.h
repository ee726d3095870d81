#pragma once

#include "ui/list/RowListView.h"

#include <QtGui/QAccessible>
#include <QtTest/QTest>

/// The rows of a list as assistive technology reads them and as the mouse reaches them.
namespace driftbox::ShownRows {

inline QAccessibleInterface& row(RowListView& list, int row)
{
    return *QAccessible::queryAccessibleInterface(&list)->child(row);
}

/// The names of what is within.
inline QStringList names(const QAccessibleInterface& parent)
{
    QStringList names;
    for (int i = 0; i < parent.childCount(); ++i)
        names << parent.child(i)->text(QAccessible::Name);
    return names;
}
inline QStringList names(RowListView& list)
{
    return names(*QAccessible::queryAccessibleInterface(&list));
}

/// A button of a row; there must be one of that name.
inline QAccessibleInterface& button(RowListView& list, int of, const QString& name)
{
    QAccessibleInterface& parent = row(list, of);
    return *parent.child(static_cast<int>(names(parent).indexOf(name)));
}

/// Moves there and clicks.
inline void click(RowListView& list, QPoint place)
{
    QTest::mouseMove(list.viewport(), place);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
}
inline void click(RowListView& list, const QAccessibleInterface& element)
{
    click(list, list.viewport()->mapFromGlobal(element.rect().center()));
}

} // namespace driftbox::ShownRows
