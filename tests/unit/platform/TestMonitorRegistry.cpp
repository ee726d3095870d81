#include "fakes/FakeKeyEventMonitor.h"
#include "fakes/FakeLocalKeyMonitor.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace std::chrono_literals;

class TestMonitorRegistry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void handlersAreCalledInOrderUntilTheirTokenIsDestroyed()
    {
        FakeLocalKeyMonitor monitor;
        QByteArray calls;
        auto first = monitor.addMonitor([&](const KeyPress&) { return calls += 'a', false; });
        const auto second =
            monitor.addMonitor([&](const KeyPress&) { return calls += 'b', false; });

        QVERIFY(!monitor.press(Qt::Key_A));
        first.reset();
        QVERIFY(!monitor.press(Qt::Key_A));
        QCOMPARE(calls, QByteArray("abb"));
        QCOMPARE(monitor.monitorCount(), std::size_t(1));
    }

    void consumedKeyPressIsNotPassedOn()
    {
        FakeLocalKeyMonitor monitor;
        int reached = 0;
        const auto taker =
            monitor.addMonitor([](const KeyPress& press) { return press.key == Qt::Key_Escape; });
        const auto next = monitor.addMonitor([&](const KeyPress&) { return ++reached, false; });

        QVERIFY(monitor.press(Qt::Key_Escape));
        QCOMPARE(reached, 0);
        QVERIFY(!monitor.press(Qt::Key_A));
        QCOMPARE(reached, 1);
    }

    void handlerMayRemoveAndInstallMonitors()
    {
        FakeKeyEventMonitor monitor;
        int later = 0;
        int fresh = 0;
        std::unique_ptr<MonitorToken> removed;
        std::unique_ptr<MonitorToken> installed;
        std::unique_ptr<MonitorToken> self;
        self = monitor.addMonitor(KeyEventScope::global, [&](const KeyEvent&) {
            removed.reset();
            installed =
                monitor.addMonitor(KeyEventScope::global, [&](const KeyEvent&) { ++fresh; });
            self.reset();
        });
        removed = monitor.addMonitor(KeyEventScope::global, [&](const KeyEvent&) { ++later; });

        monitor.pressKey(1ms);
        QCOMPARE(later, 0);
        QCOMPARE(fresh, 0);
        monitor.pressKey(2ms);
        QCOMPARE(fresh, 1);
        QCOMPARE(monitor.monitorCount(KeyEventScope::global), std::size_t(1));
    }

    void tokenMayOutliveItsMonitor()
    {
        auto captured = std::make_shared<int>();
        const std::weak_ptr<int> watched = captured;
        std::unique_ptr<MonitorToken> token;
        {
            FakeKeyEventMonitor monitor;
            token = monitor.addMonitor(KeyEventScope::local,
                                       [kept = std::move(captured)](const KeyEvent&) {});
        }
        token.reset();
        QVERIFY(watched.expired());
    }
};

DRIFTBOX_TEST(TestMonitorRegistry, QCoreApplication)
#include "TestMonitorRegistry.moc"
