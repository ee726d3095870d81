#include "platform/desktop/DBusInstanceLink.h"
#include "support/SessionBus.h"
#include "support/main/TestMain.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCall>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

const QString applicationPath = u"/app/driftbox"_s;
const QString application = u"org.freedesktop.Application"_s;

/// A connection to the bus that ends with it.
class Connection
{
public:
    Connection(const QString& address, const QString& name)
        : m_name(name)
        , m_bus(QDBusConnection::connectToBus(address, name))
    {
    }
    ~Connection() { QDBusConnection::disconnectFromBus(m_name); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    [[nodiscard]] QDBusConnection& bus() { return m_bus; }

private:
    QString m_name;
    QDBusConnection m_bus;
};

/// The call that a desktop's launcher makes.
QDBusMessage callOf(const QString& method, const QVariantList& arguments)
{
    auto call =
        QDBusMessage::createMethodCall(u"app.driftbox"_s, applicationPath, application, method);
    call.setArguments(arguments);
    return call;
}

} // namespace

class TestDBusInstanceLink : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_bus = std::make_unique<SessionBus>(SessionBus::Services::none); }
    void cleanup() { m_bus.reset(); }

    void firstInstanceClaimsTheName()
    {
        Connection connection(m_bus->address(), u"first"_s);
        DBusInstanceLink link(connection.bus(), m_folder.path());
        QSignalSpy opened(&link, &InstanceLink::documentsOpened);
        QCOMPARE(link.claim({QUrl(u"file:///a.md"_s)}), InstanceLink::Claim::first);
        QCOMPARE(opened.count(), 0); // its own documents are not reported
    }

    // Both links live in this process, so the first one answers only once the second has given up
    // waiting; what was handed over arrives all the same.
    void secondInstanceHandsItsDocumentsOver()
    {
        Connection one(m_bus->address(), u"first"_s);
        DBusInstanceLink first(one.bus(), m_folder.path());
        QCOMPARE(first.claim({}), InstanceLink::Claim::first);
        QSignalSpy opened(&first, &InstanceLink::documentsOpened);
        QSignalSpy activated(&first, &InstanceLink::activated);

        const QList<QUrl> documents = {QUrl::fromLocalFile(u"/tmp/a b.md"_s),
                                       QUrl::fromLocalFile(u"/tmp/\u00e4\u732b#?%20.md"_s)};
        secondStart(documents);
        QTRY_COMPARE(opened.count(), 1);
        QCOMPARE(opened.front().front().value<QList<QUrl>>(), documents);
        QCOMPARE(activated.count(), 0);

        secondStart({});
        QTRY_COMPARE(activated.count(), 1);
        QCOMPARE(opened.count(), 1);
    }

    void launchersAreAnswered()
    {
        Connection one(m_bus->address(), u"first"_s);
        DBusInstanceLink first(one.bus(), m_folder.path());
        QCOMPARE(first.claim({}), InstanceLink::Claim::first);
        QSignalSpy opened(&first, &InstanceLink::documentsOpened);
        QSignalSpy activated(&first, &InstanceLink::activated);
        Connection launcher(m_bus->address(), u"launcher"_s);

        launcher.bus().send(callOf(u"Activate"_s, {QVariantMap()}));
        QTRY_COMPARE(activated.count(), 1);
        launcher.bus().send(callOf(u"Open"_s, {QStringList{u"file:///x.md"_s}, QVariantMap()}));
        QTRY_COMPARE(opened.count(), 1);
        const QDBusPendingCall action = launcher.bus().asyncCall(
            callOf(u"ActivateAction"_s, {u"no-such-action"_s, QVariantList(), QVariantMap()}));
        QTRY_VERIFY(action.isFinished());
        QCOMPARE(opened.count(), 1);
    }

    void malformedCallsAreIgnored()
    {
        Connection one(m_bus->address(), u"first"_s);
        DBusInstanceLink first(one.bus(), m_folder.path());
        QCOMPARE(first.claim({}), InstanceLink::Claim::first);
        QSignalSpy opened(&first, &InstanceLink::documentsOpened);
        Connection stranger(m_bus->address(), u"stranger"_s);
        for (const QVariantList& arguments :
             {QVariantList(), QVariantList{42}, QVariantList{u"file:///x.md"_s, QVariantMap()}}) {
            const QDBusPendingCall call = stranger.bus().asyncCall(callOf(u"Open"_s, arguments));
            QTRY_VERIFY(call.isFinished());
            QVERIFY(call.isError());
        }
        QCOMPARE(opened.count(), 0);
        stranger.bus().send(callOf(u"Open"_s, {QStringList{u""_s, u"::"_s}, QVariantMap()}));
        stranger.bus().send(callOf(u"Activate"_s, {QVariantMap()}));
        QSignalSpy activated(&first, &InstanceLink::activated);
        QTRY_COMPARE(activated.count(), 1);
    }

    void hangingFirstInstanceDoesNotBlockTheSecond()
    {
        Connection one(m_bus->address(), u"first"_s);
        DBusInstanceLink first(one.bus(), m_folder.path());
        QCOMPARE(first.claim({}), InstanceLink::Claim::first);
        QElapsedTimer elapsed;
        elapsed.start();
        secondStart({});
        QVERIFY(elapsed.elapsed() < 5000); // the bus itself would wait for 25 s
    }

    void nextInstanceTakesOverWhenTheFirstEnds()
    {
        {
            Connection one(m_bus->address(), u"first"_s);
            DBusInstanceLink first(one.bus(), m_folder.path());
            QCOMPARE(first.claim({}), InstanceLink::Claim::first);
        }
        Connection two(m_bus->address(), u"second"_s);
        DBusInstanceLink second(two.bus(), m_folder.path());
        QCOMPARE(second.claim({}), InstanceLink::Claim::first);
    }

    void lockFileBlocksASecondInstanceWithoutABus()
    {
        const QDBusConnection nothing(u"no such connection"_s);
        DBusInstanceLink first(nothing, m_folder.path());
        QCOMPARE(first.claim({}), InstanceLink::Claim::first);
        DBusInstanceLink second(nothing, m_folder.path());
        QTest::ignoreMessage(QtWarningMsg,
                             "Already running; without a session bus nothing is handed over");
        QCOMPARE(second.claim({QUrl(u"file:///a.md"_s)}), InstanceLink::Claim::handedOver);
    }

    void staleLockIsIgnored()
    {
        QProcess gone;
        gone.start(u"true"_s, QStringList());
        QVERIFY(gone.waitForStarted());
        const QByteArray id = QByteArray::number(gone.processId());
        QVERIFY(gone.waitForFinished());
        QFile lock(m_folder.filePath(u"driftbox.lock"_s));
        QVERIFY(lock.open(QIODevice::WriteOnly));
        lock.write(id + "\ndriftbox\n" + QSysInfo::machineHostName().toUtf8() + '\n');
        lock.close();

        DBusInstanceLink link(QDBusConnection(u"no such connection"_s), m_folder.path());
        QCOMPARE(link.claim({}), InstanceLink::Claim::first);
    }

    void programRunsIfNoLockCanBeCreated()
    {
        DBusInstanceLink link(QDBusConnection(u"no such connection"_s), u"/nowhere/at/all"_s);
        QCOMPARE(link.claim({}), InstanceLink::Claim::first);
    }

    void lossOfTheBusChangesNothing()
    {
        Connection one(m_bus->address(), u"first"_s);
        DBusInstanceLink first(one.bus(), m_folder.path());
        QCOMPARE(first.claim({}), InstanceLink::Claim::first);
        m_bus.reset();
        QTRY_VERIFY(!one.bus().isConnected());
    }

private:
    void secondStart(const QList<QUrl>& documents)
    {
        Connection two(m_bus->address(), u"second"_s);
        DBusInstanceLink second(two.bus(), m_folder.path());
        QTest::ignoreMessage(QtCriticalMsg,
                             QRegularExpression(u"^The running program does not answer: "_s));
        QCOMPARE(second.claim(documents), InstanceLink::Claim::handedOver);
    }

    QTemporaryDir m_folder;
    std::unique_ptr<SessionBus> m_bus;
};

DRIFTBOX_TEST(TestDBusInstanceLink, QCoreApplication)
#include "TestDBusInstanceLink.moc"
