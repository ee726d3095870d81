#include "clipboard/recognition/ColumnGaps.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

/// A line 30 pixels high whose columns are inked where `columns` has '#'.
QImage lineOf(const QString& columns)
{
    QImage line(static_cast<int>(columns.size()), 30, QImage::Format_Grayscale8);
    line.fill(Qt::white);
    for (int x = 0; x < line.width(); ++x) {
        if (columns[x] == u'#')
            line.scanLine(15)[x] = 0;
    }
    return line;
}

} // namespace

class TestColumnGaps : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsTheGapBeforeAWord_data()
    {
        QTest::addColumn<QString>("columns");
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("begin");
        QTest::addColumn<int>("end");
        QTest::newRow("where the word begins") << u"####...####"_s << 7 << 4 << 7;
        QTest::newRow("some way into the word") << u"####...##########"_s << 14 << 4 << 7;
        QTest::newRow("the widest") << u"###..####...###.####"_s << 17 << 9 << 12;
        QTest::newRow("not too far away") << u"#....##############.#######"_s << 24 << 19 << 20;
        QTest::newRow("not behind") << u"####.#######....####"_s << 9 << 4 << 5;
        QTest::newRow("none") << u"####################"_s << 12 << 12 << 12;
        QTest::newRow("at the beginning") << u"...#####"_s << 4 << 0 << 3;
        QTest::newRow("nothing at all") << u""_s << 0 << 0 << 0;
    }
    void findsTheGapBeforeAWord()
    {
        QFETCH(const QString, columns);
        QFETCH(const int, x);
        QFETCH(const int, begin);
        QFETCH(const int, end);
        const ColumnGaps::Gap gap = ColumnGaps(lineOf(columns)).before(x);
        QCOMPARE(gap.begin, begin);
        QCOMPARE(gap.end, end);
        QCOMPARE(gap.width(), end - begin);
    }

    void paleInkCounts()
    {
        QImage line = lineOf(u"#.#"_s);
        line.scanLine(3)[1] = 190;
        QCOMPARE(ColumnGaps(line).before(1).width(), 0);
        line.scanLine(3)[1] = 230;
        QCOMPARE(ColumnGaps(line).before(1).width(), 1);
    }
};

DRIFTBOX_TEST(TestColumnGaps, QCoreApplication)
#include "TestColumnGaps.moc"
