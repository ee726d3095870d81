#include "support/main/TestMain.h"
#include "ui/list/RowPositions.h"

#include <QtTest/QTest>

using namespace driftbox;

class TestRowPositions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyListHasNoPositions()
    {
        RowPositions positions;
        QCOMPARE(positions.count(), 0);
        QCOMPARE(positions.height(), 0);
        QCOMPARE(positions.rowAt(0), -1);
        positions.assign(0, [](int) { return 10; });
        QCOMPARE(positions.rowAt(0), -1);
    }

    void rowsAreStacked()
    {
        RowPositions positions;
        positions.assign(3, [](int row) { return row == 1 ? 5 : 10; });
        QCOMPARE(positions.height(), 25);
        QCOMPARE(positions.top(0), 0);
        QCOMPARE(positions.bottom(0), 10);
        QCOMPARE(positions.top(1), 10);
        QCOMPARE(positions.top(2), 15);
        QCOMPARE(positions.bottom(2), 25);
    }

    void everyPositionMapsToItsRow()
    {
        RowPositions positions;
        positions.assign(3, [](int row) { return row == 1 ? 5 : 10; });
        QCOMPARE(positions.rowAt(-1), -1);
        QCOMPARE(positions.rowAt(0), 0);
        QCOMPARE(positions.rowAt(9), 0);
        QCOMPARE(positions.rowAt(10), 1);
        QCOMPARE(positions.rowAt(14), 1);
        QCOMPARE(positions.rowAt(15), 2);
        QCOMPARE(positions.rowAt(24), 2);
        QCOMPARE(positions.rowAt(25), -1);
    }

    void assigningAgainReplacesThePositions()
    {
        RowPositions positions;
        positions.assign(100, [](int) { return 50; });
        positions.assign(1, [](int) { return 7; });
        QCOMPARE(positions.height(), 7);
        QCOMPARE(positions.rowAt(7), -1);
    }
};

DRIFTBOX_TEST(TestRowPositions, QCoreApplication)
#include "TestRowPositions.moc"
