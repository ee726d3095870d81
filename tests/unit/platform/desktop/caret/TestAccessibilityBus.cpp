#include "fakes/FakeActiveWindow.h"
#include "fakes/FakeScreens.h"
#include "platform/desktop/ThreadPoolTaskRunner.h"
#include "platform/desktop/caret/AccessibilityBus.h"
#include "platform/desktop/caret/AtSpiCaretLookup.h"
#include "platform/desktop/caret/ToolkitAccessibility.h"
#include "support/OtherProgram.h"
#include "support/SessionBus.h"
#include "support/main/TestMain.h"

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusInterface>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

int absenceLines = 0;
QtMessageHandler otherHandler = nullptr;

void countAbsenceLines(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (message.startsWith(u"No accessibility bus; the caret cannot be found: "))
        ++absenceLines;
    else
        otherHandler(type, context, message);
}

} // namespace

class LyingLauncher : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    // By name: what the bus library calls.
    QString GetAddress() // NOLINT(readability-identifier-naming)
    {
        ++asked;
        return u"unix:path=/nowhere"_s;
    }

public:
    int asked = 0;
};

class TestAccessibilityBus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        absenceLines = 0;
        otherHandler = qInstallMessageHandler(countAbsenceLines);
    }
    void cleanup()
    {
        qInstallMessageHandler(otherHandler);
        QDBusConnection::disconnectFromBus(u"session"_s);
    }

    void missingSessionBusIsLoggedOnceAndGivesNoCaret()
    {
        const QDBusConnection nothing(u"no such connection"_s);
        const ToolkitAccessibility accessibility(nothing);
        AtSpiCaretLookup lookup(nothing, m_tasks, m_activeWindow, m_screens);

        // Every request looks for the bus again, and none logs another line.
        for (int i = 0; i < 3; ++i) {
            int answers = 0;
            std::optional<QRectF> caret = QRectF(1, 1, 1, 1);
            lookup.caretRectangle(this, [&](const auto& answer) {
                ++answers;
                caret = answer;
            });
            QTRY_COMPARE(answers, 1);
            QCOMPARE(caret, std::nullopt);
            QTest::qWait(20); // time for a second line to come
        }
        QCOMPARE(absenceLines, 1);
    }

    void missingAccessibilityIsLoggedOnce()
    {
        const SessionBus bus(SessionBus::Services::none);
        const auto session = QDBusConnection::connectToBus(bus.address(), u"session"_s);
        AccessibilityBus accessibility(session, m_tasks);
        QTRY_COMPARE(absenceLines, 1);
        accessibility.retry();
        QTest::qWait(200); // time for a second line to come
        QVERIFY(!accessibility.connection().isConnected());
        QCOMPARE(absenceLines, 1);
    }

    void laterServiceIsFoundAndEnabled()
    {
        const SessionBus bus(SessionBus::Services::none);
        const auto session = QDBusConnection::connectToBus(bus.address(), u"session"_s);
        AccessibilityBus accessibility(session, m_tasks);
        const ToolkitAccessibility toolkits(session);
        QTRY_COMPARE(absenceLines, 1);

        const OtherProgram launcher({u"/usr/libexec/at-spi-bus-launcher"_s});
        QTRY_VERIFY_WITH_TIMEOUT(accessibility.connection().isConnected(), 20'000);
        const QDBusInterface status(u"org.a11y.Bus"_s, u"/org/a11y/bus"_s, u"org.a11y.Status"_s,
                                    session);
        QTRY_VERIFY(status.property("IsEnabled").toBool());
    }

    void unreachableAddressGivesNoConnection()
    {
        const SessionBus bus(SessionBus::Services::none);
        auto liar = QDBusConnection::connectToBus(bus.address(), u"liar"_s);
        LyingLauncher launcher;
        QVERIFY(liar.registerObject(u"/org/a11y/bus"_s, u"org.a11y.Bus"_s, &launcher,
                                    QDBusConnection::ExportAllSlots));
        QVERIFY(liar.registerService(u"org.a11y.Bus"_s));

        const auto session = QDBusConnection::connectToBus(bus.address(), u"session"_s);
        const AccessibilityBus accessibility(session, m_tasks);
        QTRY_COMPARE(absenceLines, 1);
        QCOMPARE(launcher.asked, 1);
        QVERIFY(!accessibility.connection().isConnected());
        QDBusConnection::disconnectFromBus(u"liar"_s);
    }

private:
    ThreadPoolTaskRunner m_tasks;
    FakeActiveWindow m_activeWindow;
    FakeScreens m_screens;
};

DRIFTBOX_TEST(TestAccessibilityBus, QCoreApplication)
#include "TestAccessibilityBus.moc"
