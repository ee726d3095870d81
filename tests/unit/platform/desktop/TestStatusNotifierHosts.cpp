#include "platform/desktop/StatusNotifierHosts.h"
#include "support/SessionBus.h"
#include "support/main/TestMain.h"

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusVariant>
#include <QtDBus/QDBusVirtualObject>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

const QString watcherService = u"org.kde.StatusNotifierWatcher"_s;
const QString watcherPath = u"/StatusNotifierWatcher"_s;

// A watcher of notifier items on a connection of its own.
class Watcher final : public QDBusVirtualObject
{
public:
    explicit Watcher(const QString& address, bool host)
        : hasHost(host)
        , m_bus(QDBusConnection::connectToBus(address, u"watcher"_s))
    {
        m_bus.registerVirtualObject(watcherPath, this);
        m_bus.registerService(watcherService);
    }
    ~Watcher() override { QDBusConnection::disconnectFromBus(u"watcher"_s); }

    [[nodiscard]] QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override
    {
        ++questions;
        if (isSilent)
            return true;
        if (isBroken)
            return bus.send(message.createErrorReply(QDBusError::UnknownProperty, u"no"_s));
        return bus.send(message.createReply(QVariant::fromValue(QDBusVariant(hasHost))));
    }

    void setHost(bool present)
    {
        hasHost = present;
        m_bus.send(QDBusMessage::createSignal(watcherPath, watcherService,
                                              present ? u"StatusNotifierHostRegistered"_s
                                                      : u"StatusNotifierHostUnregistered"_s));
    }

    bool hasHost;
    bool isSilent = false;
    bool isBroken = false;
    int questions = 0;

private:
    QDBusConnection m_bus;
};

} // namespace

class TestStatusNotifierHosts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_bus = std::make_unique<SessionBus>(SessionBus::Services::none);
        m_hosts = std::make_unique<StatusNotifierHosts>(
            QDBusConnection::connectToBus(m_bus->address(), u"session"_s));
    }
    void cleanup()
    {
        m_hosts.reset();
        QDBusConnection::disconnectFromBus(u"session"_s);
        m_bus.reset();
    }

    void noHostWithoutABus()
    {
        StatusNotifierHosts hosts{QDBusConnection(u"no such connection"_s)};
        hosts.watch();
        QVERIFY(!hosts.isAvailable());
    }

    void watcherIsNotAskedBeforeWatching()
    {
        Watcher watcher(m_bus->address(), true);
        QCOMPARE(watcher.questions, 0);
        m_hosts->watch();
        QTRY_VERIFY(m_hosts->isAvailable());
        m_hosts->watch();
        QCOMPARE(watcher.questions, 1);
    }

    void watcherWithoutAHostIsUnavailable()
    {
        Watcher watcher(m_bus->address(), false);
        m_hosts->watch();
        QTRY_COMPARE(watcher.questions, 1);
        QVERIFY(!m_hosts->isAvailable());
        watcher.setHost(true);
        QTRY_VERIFY(m_hosts->isAvailable());
        watcher.setHost(false);
        QTRY_VERIFY(!m_hosts->isAvailable());
    }

    void lateOrRestartedHostIsFound()
    {
        m_hosts->watch();
        QSignalSpy changes(m_hosts.get(), &StatusArea::availableChanged);
        for (const int before : {0, 2}) {
            auto watcher = std::make_unique<Watcher>(m_bus->address(), true);
            QTRY_COMPARE(changes.count(), before + 1);
            watcher.reset();
            QTRY_COMPARE(changes.count(), before + 2);
        }
        QVERIFY(!m_hosts->isAvailable());
    }

    void silentWatcherIsUnavailable()
    {
        Watcher watcher(m_bus->address(), true);
        watcher.isSilent = true;
        m_hosts->watch();
        QTRY_COMPARE(watcher.questions, 1);
        QVERIFY(!m_hosts->isAvailable());
        watcher.isSilent = false;
        watcher.isBroken = true;
        watcher.setHost(true);
        QTRY_COMPARE(watcher.questions, 2);
        QVERIFY(!m_hosts->isAvailable());
    }

    void lossOfTheBusMakesHostsUnavailable()
    {
        const Watcher watcher(m_bus->address(), true);
        m_hosts->watch();
        QTRY_VERIFY(m_hosts->isAvailable());
        m_bus.reset();
        QTRY_VERIFY(!m_hosts->isAvailable());
    }

private:
    std::unique_ptr<SessionBus> m_bus;
    std::unique_ptr<StatusNotifierHosts> m_hosts;
};

DRIFTBOX_TEST(TestStatusNotifierHosts, QCoreApplication)
#include "TestStatusNotifierHosts.moc"
