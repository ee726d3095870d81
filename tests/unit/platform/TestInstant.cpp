#include "platform/Instant.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

QDateTime utc(const QString& text)
{
    return QDateTime::fromString(text, Qt::ISODateWithMs);
}

} // namespace

class TestInstant : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void referenceDateIsTheStartOf2001()
    {
        QCOMPARE(Instant::fromDateTime(utc(u"2001-01-01T00:00:00Z"_s)).referenceSeconds(), 0.0);
        QCOMPARE(Instant().referenceSeconds(), 0.0);
    }

    void instantsHaveTheirReferenceSeconds_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("seconds");
        QTest::newRow("fraction") << u"2001-01-01T00:00:01.250Z"_s << 1.25;
        QTest::newRow("before") << u"2000-12-31T23:59:59.500Z"_s << -0.5;
        QTest::newRow("today") << u"2024-06-01T12:00:00.001Z"_s << 738'936'000.001;
        QTest::newRow("Unix epoch") << u"1970-01-01T00:00:00.000Z"_s << -978'307'200.0;
        QTest::newRow("far") << u"9999-12-31T23:59:59.999Z"_s << 252'423'993'599.999;
    }
    void instantsHaveTheirReferenceSeconds()
    {
        QFETCH(const QString, text);
        QFETCH(const double, seconds);
        const Instant instant = Instant::fromDateTime(utc(text));
        QCOMPARE(instant.referenceSeconds(), seconds);
        QCOMPARE(instant.toLocalTime().toUTC().toString(Qt::ISODateWithMs),
                 utc(text).toString(Qt::ISODateWithMs));
    }

    void timeZonesDoNotMatter()
    {
        const auto there = QDateTime::fromString(u"2024-06-01T14:00:00+02:00"_s, Qt::ISODate);
        QCOMPARE(Instant::fromDateTime(there),
                 Instant::fromDateTime(utc(u"2024-06-01T12:00:00Z"_s)));
    }

    void toLocalTimeUsesTheLocalZone()
    {
        QCOMPARE(Instant().toLocalTime().timeSpec(), Qt::LocalTime);
    }

    void millisecondsSurviveARoundTrip()
    {
        const QDateTime start = utc(u"2024-06-01T12:00:00.000Z"_s);
        for (int ms = 0; ms < 1000; ++ms) {
            const QDateTime time = start.addMSecs(ms);
            QCOMPARE(Instant::fromDateTime(time).toLocalTime(), time);
        }
    }

    void extremeInstantsConvertToATime_data()
    {
        QTest::addColumn<double>("seconds");
        QTest::newRow("end of the counter") << 9'223'372'036e6;
        QTest::newRow("far ahead") << 1e300;
        QTest::newRow("far back") << -1e300;
    }
    void extremeInstantsConvertToATime()
    {
        QFETCH(const double, seconds);
        const QDateTime time = Instant::fromReferenceSeconds(seconds).toLocalTime();
        QVERIFY(time.isValid());
        QVERIFY(!time.toString(u"MM-dd HH:mm:ss"_s).isEmpty());
    }

    void instantsAreOrdered()
    {
        const auto earlier = Instant::fromReferenceSeconds(1.5);
        const auto later = Instant::fromReferenceSeconds(1.75);
        QVERIFY(earlier < later);
        QVERIFY(earlier == Instant::fromReferenceSeconds(1.5));
    }
};

DRIFTBOX_TEST(TestInstant, QCoreApplication)
#include "TestInstant.moc"
