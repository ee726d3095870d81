#include "support/main/TestMain.h"
#include "ui/window/DragStart.h"

#include <QtTest/QTest>

using namespace driftbox;

class TestDragStart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void smallMovementsStartNoDrag()
    {
        DragStart drag;
        drag.press({10, 10});
        QCOMPARE(drag.move({11, 9}), std::nullopt);
        QVERIFY(drag.isPressed());
        drag.release();
        QCOMPARE(drag.move({50, 50}), std::nullopt);
    }

    void dragStartsOnceAtThePressPosition()
    {
        DragStart drag;
        drag.press({10, 10});
        QCOMPARE(drag.move({10, 30}), QPoint(10, 10));
        QVERIFY(!drag.isPressed());
        QCOMPARE(drag.move({10, 50}), std::nullopt);
    }

    void noDragWithoutAPress()
    {
        DragStart drag;
        QCOMPARE(drag.move({100, 100}), std::nullopt);
    }
};

DRIFTBOX_TEST(TestDragStart, QCoreApplication)
#include "TestDragStart.moc"
