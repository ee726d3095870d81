#include "clipboard/recognition/ConnectedComponents.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

/// A mask drawn with '#' for marks.
QImage mask(const QStringList& rows)
{
    QImage image(static_cast<int>(rows.front().size()), static_cast<int>(rows.size()),
                 QImage::Format_Grayscale8);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.scanLine(y)[x] = rows[y][x] == u'#' ? 255 : 0;
    }
    return image;
}

} // namespace

class TestConnectedComponents : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countsTouchingPixels_data()
    {
        QTest::addColumn<QStringList>("rows");
        QTest::addColumn<QList<int>>("pixels");
        QTest::newRow("nothing") << QStringList{u"..."_s, u"..."_s} << QList<int>();
        QTest::newRow("one pixel") << QStringList{u"..."_s, u".#."_s} << QList<int>{1};
        QTest::newRow("a row") << QStringList{u"####"_s} << QList<int>{4};
        QTest::newRow("two of a row") << QStringList{u"#.##"_s} << QList<int>{1, 2};
        QTest::newRow("diagonals") << QStringList{u"#..#"_s, u".##."_s} << QList<int>{4};
        QTest::newRow("rows apart") << QStringList{u"##"_s, u".."_s, u"##"_s} << QList<int>{2, 2};
        QTest::newRow("arms that meet below")
            << QStringList{u"#.#.#"_s, u"#.#.#"_s, u"#####"_s} << QList<int>{11};
        QTest::newRow("a spiral") << QStringList{u"#####"_s, u"#...#"_s, u"#.#.#"_s, u"#.###"_s}
                                  << QList<int>{14};
        QTest::newRow("all") << QStringList{u"##"_s, u"##"_s} << QList<int>{4};
    }
    void countsTouchingPixels()
    {
        QFETCH(const QStringList, rows);
        QFETCH(const QList<int>, pixels);
        const ConnectedComponents components(mask(rows));
        QList<int> counted;
        for (const auto& component : components.components())
            counted.push_back(component.pixels);
        QCOMPARE(counted, pixels);
    }

    void boxesAreTight()
    {
        const ConnectedComponents components(mask({u".....##"_s, u".#....#"_s, u"##....."_s}));
        QCOMPARE(components.components().size(), 2U);
        QCOMPARE(components.components()[0].box, QRect(5, 0, 2, 2));
        QCOMPARE(components.components()[1].box, QRect(0, 1, 2, 2));
    }

    void runsAreMappedToTheirComponents()
    {
        const ConnectedComponents components(mask({u"#.#"_s, u"###"_s, u"..."_s, u"#.."_s}));
        QList<int> of;
        for (const auto& run : components.runs())
            of.push_back(run.component);
        QCOMPARE(of, (QList<int>{0, 0, 0, 1}));
    }

    void emptyMaskHasNoComponents() { QVERIFY(ConnectedComponents(QImage()).components().empty()); }
};

DRIFTBOX_TEST(TestConnectedComponents, QCoreApplication)
#include "TestConnectedComponents.moc"
