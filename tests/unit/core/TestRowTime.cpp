#include "core/RowTime.h"
#include "support/main/TestMain.h"
#include "unit/core/LocalTimeZone.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestRowTime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void timeIsInTheUsersTimeZone()
    {
        const LocalTimeZone zone("<+0545>-5:45");
        const QDateTime lastSecond({2026, 12, 31}, {18, 14, 59}, Qt::UTC);
        QCOMPARE(rowTime(Instant::fromDateTime(lastSecond)), u"12-31 23:59:59"_s);
        QCOMPARE(rowTime(Instant::fromDateTime(lastSecond.addSecs(1))), u"01-01 00:00:00"_s);
    }
};

DRIFTBOX_TEST(TestRowTime, QCoreApplication)
#include "TestRowTime.moc"
