#include "core/RowTime.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestRowTime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itIsThatOfTheUsersClock()
    {
        const QDateTime lastSecond({2026, 12, 31}, {23, 59, 59});
        QCOMPARE(rowTime(Instant::fromDateTime(lastSecond)), u"12-31 23:59:59"_s);
        QCOMPARE(rowTime(Instant::fromDateTime(lastSecond.addSecs(1))), u"01-01 00:00:00"_s);
    }
};

DRIFTBOX_TEST(TestRowTime, QCoreApplication)
#include "TestRowTime.moc"
