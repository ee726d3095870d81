#include "support/main/TestMain.h"
#include "ui/list/RowLayout.h"

#include <QtTest/QTest>

using namespace driftbox;

class TestRowLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void partsDoNotOverlap_data()
    {
        QTest::addColumn<int>("height");
        QTest::newRow("text") << RowLayout::textRowHeight;
        QTest::newRow("image") << RowLayout::imageRowHeight;
    }
    void partsDoNotOverlap()
    {
        QFETCH(const int, height);
        constexpr int width = 451;
        constexpr int timeWidth = 90;
        const RowLayout layout({width, height + 1}, timeWidth);

        std::vector<QRect> parts = layout.actions(3);
        QCOMPARE(parts.size(), size_t(3));
        parts.push_back(layout.content());
        parts.push_back(layout.time());
        parts.push_back(layout.mark());
        parts.push_back(layout.divider());
        for (size_t i = 0; i < parts.size(); ++i) {
            QVERIFY(QRect(0, 0, width, height + 1).contains(parts[i]));
            for (size_t j = 0; j < i; ++j)
                QVERIFY2(!parts[i].intersects(parts[j]), qPrintable(QString::number(10 * i + j)));
        }
        QCOMPARE(layout.time().width(), timeWidth);
        QCOMPARE(layout.divider(), QRect(14, height, width - 14 - 12, 1));
    }

    void actionsAreSpacedAndAlignedBelowThePin()
    {
        const RowLayout layout({451, 53}, 90);
        for (const size_t count : {size_t(2), size_t(3)}) {
            const std::vector<QRect> actions = layout.actions(count);
            QCOMPARE(actions.back().right(), layout.mark().right());
            QVERIFY(actions.back().top() > layout.mark().bottom());
            for (size_t i = 1; i < count; ++i)
                QCOMPARE(actions[i].left() - actions[i - 1].right() - 1, 4);
        }
    }

    void largestPictureFits()
    {
        const RowLayout layout({451, 77}, 90);
        const QRect picture = layout.picture({220, 60});
        QVERIFY(layout.content().contains(picture));
        QCOMPARE(picture.top(), 8);
    }
};

DRIFTBOX_TEST(TestRowLayout, QCoreApplication)
#include "TestRowLayout.moc"
