#include "clipboard/RelativeTime.h"
#include "support/main/TestMain.h"

#include <limits>

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

constexpr double minute = 60;
constexpr double hour = 60 * minute;
constexpr double day = 24 * hour;

QString ago(double seconds, const QLocale& locale = QLocale(QLocale::English))
{
    constexpr double now = 800'000'000.75;
    return relativeTime(Instant::fromReferenceSeconds(now - seconds),
                        Instant::fromReferenceSeconds(now), locale);
}

} // namespace

class TestRelativeTime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void usesTheLargestFullUnit_data()
    {
        QTest::addColumn<double>("seconds");
        QTest::addColumn<QString>("text");

        QTest::newRow("now") << 0.0 << u"now"_s;
        QTest::newRow("less than a second") << 0.9 << u"now"_s;
        QTest::newRow("one second") << 1.0 << u"1 second ago"_s;
        QTest::newRow("seconds") << 59.9 << u"59 seconds ago"_s;
        QTest::newRow("a minute") << minute << u"1 minute ago"_s;
        QTest::newRow("minutes") << hour - 1 << u"59 minutes ago"_s;
        QTest::newRow("an hour") << hour << u"1 hour ago"_s;
        QTest::newRow("hours") << day - 1 << u"23 hours ago"_s;
        QTest::newRow("a day") << day << u"yesterday"_s;
        QTest::newRow("days") << 6 * day << u"6 days ago"_s;
        QTest::newRow("a week") << 7 * day << u"last week"_s;
        QTest::newRow("weeks") << 29 * day << u"4 weeks ago"_s;
        QTest::newRow("a month") << 30 * day << u"last month"_s;
        QTest::newRow("months") << 364 * day << u"12 months ago"_s;
        QTest::newRow("a year") << 365 * day << u"last year"_s;
        QTest::newRow("years") << 3 * 365 * day << u"3 years ago"_s;
        QTest::newRow("a clock that was set back") << -5 * minute << u"in 5 minutes"_s;
    }
    void usesTheLargestFullUnit()
    {
        QFETCH(const double, seconds);
        QFETCH(const QString, text);
        QCOMPARE(ago(seconds), text);
    }

    void usesTheUsersLanguage()
    {
        QCOMPARE(ago(2 * hour, QLocale(QLocale::German)), u"vor 2 Stunden"_s);
        QCOMPARE(ago(day, QLocale(QLocale::German)), u"gestern"_s);
        QCOMPARE(ago(2 * hour, QLocale(QLocale::Chinese)), u"2小时前"_s);
        QVERIFY(!ago(2 * hour, QLocale::c()).isEmpty());
    }

    void everyInstantHasAText()
    {
        for (const double seconds : {1e18, -1e18, std::numeric_limits<double>::max()})
            QVERIFY(!ago(seconds).isEmpty());
    }
};

DRIFTBOX_TEST(TestRelativeTime, QCoreApplication)
#include "TestRelativeTime.moc"
