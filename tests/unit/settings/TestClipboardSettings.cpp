#include "support/main/TestMain.h"
#include "unit/settings/SettingsDesk.h"

#include "settings/AboutText.h"
#include "settings/ClipboardSettings.h"

#include <limits>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestClipboardSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stepsStopAtTheEndsOfTheRange_data()
    {
        QTest::addColumn<qint64>("from");
        QTest::addColumn<int>("steps");
        QTest::addColumn<qint64>("to");
        constexpr qint64 huge = std::numeric_limits<qint64>::max();
        QTest::newRow("up") << qint64(30) << 1 << qint64(35);
        QTest::newRow("down") << qint64(30) << -1 << qint64(25);
        QTest::newRow("to the top") << qint64(95) << 1 << qint64(100);
        QTest::newRow("refused at the top") << qint64(100) << 1 << qint64(100);
        QTest::newRow("refused at the bottom") << qint64(5) << -1 << qint64(5);
        QTest::newRow("between steps") << qint64(97) << 1 << qint64(100);
        QTest::newRow("far up") << qint64(30) << 1000 << qint64(100);
        QTest::newRow("far down") << qint64(30) << -1000 << qint64(5);
        QTest::newRow("up from below") << qint64(-7) << 1 << qint64(5);
        QTest::newRow("down from below") << qint64(0) << -1 << qint64(0);
        QTest::newRow("down from above") << qint64(1000) << -1 << qint64(100);
        QTest::newRow("up from above") << qint64(1000) << 1 << qint64(1000);
        QTest::newRow("down from far above") << huge << -1 << qint64(100);
        QTest::newRow("up from far below") << -huge << 1 << qint64(5);
    }
    void stepsStopAtTheEndsOfTheRange()
    {
        QFETCH(const qint64, from);
        QFETCH(const int, steps);
        QFETCH(const qint64, to);
        SettingsDesk desk;
        desk.settings.setClipboardCapacity(from);
        ClipboardSettings page(desk.services);
        QCOMPARE(page.capacity(), from);
        page.step(steps);
        QCOMPARE(page.capacity(), to);
        QCOMPARE(desk.settings.clipboardCapacity(), to);
    }

    void stepBeyondTheRangeWritesNothing()
    {
        SettingsDesk desk;
        desk.settings.setClipboardCapacity(100);
        ClipboardSettings page(desk.services);
        const int writes = desk.defaults.writes;
        QVERIFY(!page.canIncrement());
        page.step(1);
        QCOMPARE(desk.defaults.writes, writes);
    }

    void loweringTheCapacityDoesNotPruneTheHistory()
    {
        SettingsDesk desk;
        for (int i = 0; i < 12; ++i)
            desk.history.copy(QString::number(i));
        ClipboardSettings page(desk.services);
        page.step(-5);
        QCOMPARE(page.capacity(), 5);
        QCOMPARE(desk.history.viewModel.items().size(), size_t(12));
    }

    void clearingIsEnabledOnlyWithUnpinnedEntries()
    {
        SettingsDesk desk;
        ClipboardSettings page(desk.services);
        QSignalSpy changed(&page, &ClipboardSettings::canClearChanged);
        QVERIFY(!page.canClear());
        desk.history.viewModel.togglePin(desk.history.copy(u"pinned"_s));
        QVERIFY(!page.canClear());
        desk.history.copy(u"unpinned"_s);
        QVERIFY(page.canClear());
        QVERIFY(changed.count() >= 3);

        page.clearUnpinned();
        QVERIFY(!page.canClear());
        QCOMPARE(desk.history.texts(), QStringList{u"pinned"_s});
    }

    void versionLineShowsVersionAndBuild()
    {
        QCOMPARE(AboutText::versionLine(u"1.2"_s, u"45"_s), u"Version 1.2 (45)"_s);
        QCOMPARE(AboutText::versionLine({}, {}), u"Version 1.0 (1)"_s);
        QCOMPARE(AboutText::versionLine(u"%2"_s, u"%1"_s), u"Version %2 (%1)"_s);
    }
};

DRIFTBOX_TEST(TestClipboardSettings, QCoreApplication)
#include "TestClipboardSettings.moc"
