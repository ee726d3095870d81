#include "clipboard/recognition/ReadingOrder.h"
#include "support/main/TestMain.h"

#include <algorithm>

#include <QtTest/QTest>

using namespace driftbox;

namespace {

QRect piece(int x, int y, int width)
{
    return {x, y, width, 12};
}

/// The pieces in the order in which they are read, as numbers by their place in `pieces`; -1 stands
/// between lines.
QList<int> order(const std::vector<QRect>& pieces)
{
    // In another order than the expected one, so that none is right by chance.
    std::vector<QRect> shuffled = pieces;
    std::ranges::reverse(shuffled);
    QList<int> numbers;
    for (const TextLine& line : inReadingOrder(shuffled)) {
        if (!numbers.isEmpty())
            numbers.push_back(-1);
        for (const QRect& box : line)
            numbers.push_back(static_cast<int>(std::ranges::find(pieces, box) - pieces.begin()));
    }
    return numbers;
}

} // namespace

class TestReadingOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyPageHasNoLines() { QVERIFY(inReadingOrder({}).empty()); }

    void paragraphIsReadDownwards()
    {
        QCOMPARE(order({piece(10, 10, 300), piece(10, 30, 280), piece(10, 50, 100)}),
                 (QList<int>{0, -1, 1, -1, 2}));
    }

    void adjacentPiecesFormOneLine()
    {
        QCOMPARE(order({piece(10, 10, 80), piece(120, 12, 60), piece(220, 9, 40)}),
                 (QList<int>{0, 1, 2}));
    }

    void columnsOfProseAreReadOneAfterTheOther()
    {
        QCOMPARE(order({piece(10, 10, 280), piece(10, 30, 290), piece(10, 50, 285), //
                        piece(330, 10, 280), piece(330, 30, 290), piece(330, 50, 270)}),
                 (QList<int>{0, -1, 1, -1, 2, -1, 3, -1, 4, -1, 5}));
    }

    void titleOverTwoColumnsComesFirst()
    {
        QCOMPARE(order({piece(10, 10, 500),                     //
                        piece(10, 60, 250), piece(10, 80, 240), //
                        piece(300, 60, 250), piece(300, 80, 250)}),
                 (QList<int>{0, -1, 1, -1, 2, -1, 3, -1, 4}));
    }

    void tableIsReadRowByRow()
    {
        QCOMPARE(order({piece(10, 10, 80), piece(150, 10, 40), //
                        piece(10, 40, 90), piece(150, 40, 30), //
                        piece(10, 70, 60), piece(150, 70, 60)}),
                 (QList<int>{0, 1, -1, 2, 3, -1, 4, 5}));
    }

    void sidebarIsReadSeparatelyFromThePage()
    {
        QCOMPARE(order({piece(10, 20, 80), piece(10, 54, 60), piece(10, 88, 70), //
                        piece(200, 10, 400), piece(200, 30, 390), piece(200, 50, 400),
                        piece(200, 70, 380), piece(200, 90, 200)}),
                 (QList<int>{0, -1, 1, -1, 2, -1, 3, -1, 4, -1, 5, -1, 6, -1, 7}));
    }

    void lineNumbersStayWithTheirLines()
    {
        QCOMPARE(order({piece(10, 10, 8), piece(40, 10, 300), //
                        piece(10, 30, 8), piece(40, 30, 200), //
                        piece(10, 50, 8), piece(60, 50, 250)}),
                 (QList<int>{0, 1, -1, 2, 3, -1, 4, 5}));
    }

    void touchingLinesAreSeparated()
    {
        QCOMPARE(order({QRect(10, 10, 300, 16), QRect(10, 24, 290, 16), QRect(10, 38, 310, 16)}),
                 (QList<int>{0, -1, 1, -1, 2}));
    }

    void longPageIsReadQuickly()
    {
        std::vector<QRect> pieces;
        for (int row = 0; row < 500; ++row) {
            for (int column = 0; column < 4; ++column)
                pieces.push_back(piece(10 + column * 200, 10 + row * 20, 180));
        }
        size_t count = 0;
        for (const TextLine& line : inReadingOrder(pieces))
            count += line.size();
        QCOMPARE(count, pieces.size());
    }
};

DRIFTBOX_TEST(TestReadingOrder, QCoreApplication)
#include "TestReadingOrder.moc"
