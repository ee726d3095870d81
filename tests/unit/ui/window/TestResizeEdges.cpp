#include "support/main/TestMain.h"
#include "ui/window/ResizeEdges.h"

#include <QtTest/QTest>

using namespace driftbox;

class TestResizeEdges : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void positionsMapToTheNearbyEdges_data()
    {
        QTest::addColumn<QPoint>("place");
        QTest::addColumn<Qt::Edges>("edges");
        QTest::addColumn<Qt::CursorShape>("cursor");
        const auto row = [](const char* name, QPoint place, Qt::Edges edges,
                            Qt::CursorShape cursor) {
            QTest::newRow(name) << place << edges << cursor;
        };
        row("inside", {105, 150}, {}, Qt::ArrowCursor);
        row("left", {104, 150}, Qt::LeftEdge, Qt::SizeHorCursor);
        row("right", {295, 150}, Qt::RightEdge, Qt::SizeHorCursor);
        row("top", {200, 100}, Qt::TopEdge, Qt::SizeVerCursor);
        row("bottom", {200, 199}, Qt::BottomEdge, Qt::SizeVerCursor);
        row("around the frame", {97, 150}, Qt::LeftEdge, Qt::SizeHorCursor);
        row("top left, along the top", {111, 100}, Qt::TopEdge | Qt::LeftEdge, Qt::SizeFDiagCursor);
        row("top left, along the left", {100, 111}, Qt::TopEdge | Qt::LeftEdge,
            Qt::SizeFDiagCursor);
        row("bottom right", {299, 199}, Qt::BottomEdge | Qt::RightEdge, Qt::SizeFDiagCursor);
        row("top right", {299, 100}, Qt::TopEdge | Qt::RightEdge, Qt::SizeBDiagCursor);
        row("bottom left", {100, 199}, Qt::BottomEdge | Qt::LeftEdge, Qt::SizeBDiagCursor);
        row("beyond the corner", {112, 100}, Qt::TopEdge, Qt::SizeVerCursor);
    }
    void positionsMapToTheNearbyEdges()
    {
        QFETCH(const QPoint, place);
        QFETCH(const Qt::Edges, edges);
        const QRect frame(100, 100, 200, 100);
        constexpr int thickness = 5;
        constexpr int cornerLength = 12;
        QCOMPARE(ResizeEdges::at(place, frame, thickness, cornerLength), edges);
        QTEST(ResizeEdges::cursor(edges), "cursor");
    }
};

DRIFTBOX_TEST(TestResizeEdges, QCoreApplication)
#include "TestResizeEdges.moc"
