#include "platform/x11/windows/Strut.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;

class TestStrut : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void twelveNumbersGiveFourRanges()
    {
        const std::uint32_t numbers[] = {0, 0, 30, 48, 0, 0, 0, 0, 100, 1539, 0, 1919};
        QVERIFY(strutsFrom(numbers) ==
                (std::vector<Strut>{{Qt::TopEdge, 30, 100, 1539}, {Qt::BottomEdge, 48, 0, 1919}}));
    }

    void fourNumbersSpanTheWholeEdge()
    {
        const std::uint32_t numbers[] = {64, 0, 0, 0};
        const auto struts = strutsFrom(numbers);
        QCOMPARE(struts.size(), std::size_t(1));
        QCOMPARE(withoutStruts({0, 0, 1440, 900}, {1440, 900}, struts), QRect(64, 0, 1376, 900));
    }

    void malformedStrutsAreIgnored()
    {
        QVERIFY(strutsFrom({}).empty());
        const std::uint32_t tooFew[] = {1, 2, 3};
        QVERIFY(strutsFrom(tooFew).empty());
        const std::uint32_t huge[] = {0xffffffff, 0xffffffff, 0xffffffff, 0xffffffff};
        QCOMPARE(withoutStruts({0, 0, 1440, 900}, {1440, 900}, strutsFrom(huge)),
                 QRect(0, 0, 1440, 900));
    }

    void everyEdgeCanBeReserved()
    {
        const Strut struts[] = {{Qt::LeftEdge, 10, 0, 899},
                                {Qt::RightEdge, 20, 0, 899},
                                {Qt::TopEdge, 30, 0, 1439},
                                {Qt::BottomEdge, 40, 0, 1439},
                                {Qt::TopEdge, 25, 0, 1439}};
        QCOMPARE(withoutStruts({0, 0, 1440, 900}, {1440, 900}, struts), QRect(10, 30, 1410, 830));
    }

    void strutAffectsOnlyItsOwnScreen()
    {
        const QRect left(0, 0, 1280, 900);
        const QRect right(1280, 0, 1920, 1080);
        const QSize desktop(3200, 1080);
        // A dock at the left edge of the right screen: its strut crosses the left one.
        const Strut dock[] = {{Qt::LeftEdge, 1280 + 64, 0, 1079}};
        QCOMPARE(withoutStruts(left, desktop, dock), left);
        QCOMPARE(withoutStruts(right, desktop, dock), QRect(1344, 0, 1856, 1080));
        // A panel at the bottom of the left screen, 180 pixels above the desktop's end.
        const Strut panel[] = {{Qt::BottomEdge, 180 + 40, 0, 1279}};
        QCOMPARE(withoutStruts(left, desktop, panel), QRect(0, 0, 1280, 860));
        QCOMPARE(withoutStruts(right, desktop, panel), right);
        // A panel along the top of the right one.
        const Strut top[] = {{Qt::TopEdge, 28, 1280, 3199}};
        QCOMPARE(withoutStruts(left, desktop, top), left);
        QCOMPARE(withoutStruts(right, desktop, top), QRect(1280, 28, 1920, 1052));
    }

    void panelBetweenTwoScreensAffectsOnlyTheUpperOne()
    {
        const QRect upper(0, 0, 1440, 900);
        const QRect lower(0, 900, 1440, 900);
        const Strut panel[] = {{Qt::BottomEdge, 900 + 40, 0, 1439}};
        QCOMPARE(withoutStruts(upper, {1440, 1800}, panel), QRect(0, 0, 1440, 860));
        QCOMPARE(withoutStruts(lower, {1440, 1800}, panel), lower);
    }

    void strutsThatLeaveNothingAreIgnored()
    {
        const Strut struts[] = {{Qt::TopEdge, 600, 0, 1439}, {Qt::BottomEdge, 600, 0, 1439}};
        QCOMPARE(withoutStruts({0, 0, 1440, 900}, {1440, 900}, struts), QRect(0, 0, 1440, 900));
    }
};

DRIFTBOX_TEST(TestStrut, QCoreApplication)
#include "TestStrut.moc"
