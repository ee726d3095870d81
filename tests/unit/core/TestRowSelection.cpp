#include "core/RowSelection.h"
#include "support/main/TestMain.h"

#include <QtCore/QStringListModel>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestRowSelection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_rows.setStringList({u"a"_s, u"b"_s, u"c"_s, u"d"_s}); }

    void startsAtTheFirstRow()
    {
        const RowSelection selection(m_rows);
        QCOMPARE(selection.row(), 0);
        const QStringListModel empty;
        QCOMPARE(RowSelection(empty).row(), -1);
    }

    void movementStopsAtTheEnds()
    {
        RowSelection selection(m_rows);
        const QSignalSpy changed(&selection, &RowSelection::changed);
        selection.moveBy(-1);
        QCOMPARE(selection.row(), 0);
        QCOMPARE(changed.count(), 0);
        selection.moveBy(1);
        QCOMPARE(selection.row(), 1);
        selection.moveBy(10);
        QCOMPARE(selection.row(), 3);
        selection.moveBy(1);
        QCOMPARE(changed.count(), 2);
        selection.moveBy(-10);
        QCOMPARE(selection.row(), 0);
        selection.selectLast();
        QCOMPARE(selection.row(), 3);
        selection.selectFirst();
        QCOMPARE(selection.row(), 0);
    }

    void emptyListHasNoSelection()
    {
        QStringListModel empty;
        RowSelection selection(empty);
        const QSignalSpy changed(&selection, &RowSelection::changed);
        selection.moveBy(1);
        selection.moveBy(-1);
        selection.selectFirst();
        selection.selectLast();
        QCOMPARE(selection.row(), -1);
        QCOMPARE(changed.count(), 0);
        insert(empty, 0, u"first"_s);
        QCOMPARE(selection.row(), 0);
        QCOMPARE(changed.count(), 1);
    }

    void selectionOfTheFirstRowStaysAtTheTop()
    {
        const RowSelection selection(m_rows);
        const QSignalSpy changed(&selection, &RowSelection::changed);
        insert(m_rows, 0, u"new"_s);
        QCOMPARE(selected(selection), u"new"_s);
        QCOMPARE(changed.count(), 1);
        m_rows.moveRow({}, 3, {}, 0);
        QCOMPARE(selected(selection), u"c"_s);
        QCOMPARE(changed.count(), 2);
        insert(m_rows, 1, u"behind"_s);
        QCOMPARE(selected(selection), u"c"_s);
        QCOMPARE(changed.count(), 2);
    }

    void otherSelectedRowsAreFollowedWhenTheyMove()
    {
        RowSelection selection(m_rows);
        selection.moveBy(2);
        const QSignalSpy changed(&selection, &RowSelection::changed);
        insert(m_rows, 0, u"new"_s);
        QCOMPARE(selected(selection), u"c"_s);
        QCOMPARE(selection.row(), 3);
        m_rows.removeRow(1);
        QCOMPARE(selected(selection), u"c"_s);
        m_rows.moveRow({}, 2, {}, 0);
        QCOMPARE(selected(selection), u"c"_s);
        QCOMPARE(selection.row(), 0);
        QCOMPARE(changed.count(), 3);
        m_rows.removeRow(3);
        QCOMPARE(changed.count(), 3);
    }

    void removalSelectsTheNextRow()
    {
        RowSelection selection(m_rows);
        const QSignalSpy changed(&selection, &RowSelection::changed);
        m_rows.removeRow(0);
        QCOMPARE(selected(selection), u"b"_s);
        QCOMPARE(changed.count(), 1);
        selection.moveBy(1);
        m_rows.removeRow(1);
        QCOMPARE(selected(selection), u"d"_s);
        m_rows.removeRow(1);
        QCOMPARE(selected(selection), u"b"_s);
        QCOMPARE(changed.count(), 4);
        m_rows.removeRow(0);
        QCOMPARE(selection.row(), -1);
        QCOMPARE(changed.count(), 5);
    }

    void removalOfManyRowsKeepsTheSelectionInRange()
    {
        RowSelection selection(m_rows);
        selection.moveBy(2);
        m_rows.removeRows(1, 3);
        QCOMPARE(selected(selection), u"a"_s);
        insert(m_rows, 0, u"new"_s);
        QCOMPARE(selected(selection), u"new"_s);
    }

    void resetSelectsTheFirstRow()
    {
        RowSelection selection(m_rows);
        selection.moveBy(2);
        const QSignalSpy changed(&selection, &RowSelection::changed);
        m_rows.setStringList({u"x"_s, u"y"_s, u"z"_s});
        QCOMPARE(selected(selection), u"x"_s);
        m_rows.setStringList({u"x"_s});
        QCOMPARE(changed.count(), 2);
        m_rows.setStringList({});
        QCOMPARE(selection.row(), -1);
        QCOMPARE(changed.count(), 3);
    }

private:
    [[nodiscard]] QString selected(const RowSelection& selection) const
    {
        return m_rows.stringList().value(selection.row());
    }
    static void insert(QStringListModel& rows, int row, const QString& text)
    {
        rows.insertRow(row);
        rows.setData(rows.index(row), text);
    }

    QStringListModel m_rows;
};

DRIFTBOX_TEST(TestRowSelection, QCoreApplication)
#include "TestRowSelection.moc"
