#include "support/main/TestMain.h"
#include "unit/app/FakeDesktop.h"

#include "app/AppCoordinator.h"
#include "clipboard/ClipboardViewModel.h"
#include "markdown/MarkdownReaderCoordinator.h"
#include "panel/MagicPanelController.h"

#include <memory>

#include <QtGui/QCloseEvent>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class TestAppCoordinator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_desktop = std::make_unique<FakeDesktop>();
        m_coordinator = std::make_unique<AppCoordinator>(m_desktop->services());
    }

    void cleanup()
    {
        m_coordinator.reset();
        m_desktop.reset();
    }

    void nothingRunsBeforeStart()
    {
        QVERIFY(!AppCoordinator::shared());
        QVERIFY(m_coordinator->registry().sections().empty());
        QVERIFY(!m_coordinator->registry().activeID());
        QVERIFY(!m_coordinator->panelAnimator().visible());
        QVERIFY(m_desktop->fileSystem.files().isEmpty());
        QCOMPARE(m_desktop->keyboard.monitorCount(KeyEventScope::global), 0U);
    }

    void startConnectsTheServices()
    {
        start();
        QCOMPARE(AppCoordinator::shared(), m_coordinator.get());
        const MagicPanelSection& first = *m_coordinator->registry().sections().front();
        QCOMPARE(first.id(), u"clipboard"_s);
        QCOMPARE(first.title(), u"Clipboard"_s);
        QCOMPARE(first.systemImage(), u"doc.on.clipboard"_s);
        QCOMPARE(m_coordinator->registry().activeID(), u"clipboard"_s);
        QCOMPARE(m_desktop->keyboard.monitorCount(KeyEventScope::global), 1U);
        QCOMPARE(m_desktop->keyboard.monitorCount(KeyEventScope::local), 1U);

        m_desktop->pasteboard.copy({.text = u"a"_s});
        m_desktop->clock.advance(500ms);
        QCOMPARE(m_coordinator->clipboardVM().items().size(), size_t(1));
    }

    void servicesStartInOrder()
    {
        static QStringList log;
        log.clear();
        m_desktop->keyboard.trusted = false;
        m_desktop->loginItem.outcome = Error{u"no such item"_s};
        const auto before = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext&, const QString& message) { log << message; });
        m_coordinator->start();
        qInstallMessageHandler(before);
        QCOMPARE(log, QStringList(
                          {u"Monitor started"_s,
                           u"Accessibility not granted; hotkey monitors will not receive events"_s,
                           u"Hotkey monitors installed"_s,
                           u"Launch-at-login toggle failed: no such item"_s}));
        QCOMPARE(m_desktop->keyboard.trustRequests, 1);
        QCOMPARE(m_desktop->userDefaults.values.value(u"accessibility.didPrompt"_s),
                 DefaultsValue(true));
    }

    void lazyServicesAreCreatedOnce()
    {
        QCOMPARE(&m_coordinator->store(), &m_coordinator->store());
        QCOMPARE(&m_coordinator->monitor(), &m_coordinator->monitor());
        QCOMPARE(&m_coordinator->clipboardVM(), &m_coordinator->clipboardVM());
        QCOMPARE(&m_coordinator->panelController(), &m_coordinator->panelController());
        QCOMPARE(&m_coordinator->hotkeyManager(), &m_coordinator->hotkeyManager());
        QCOMPARE(&m_coordinator->settingsController(), &m_coordinator->settingsController());
        QCOMPARE(&m_coordinator->markdownReader(), &m_coordinator->markdownReader());
    }

    void loginItemFollowsTheSetting()
    {
        start();
        QCOMPARE(m_desktop->loginItem.unregistrations, 1); // also when it was never registered
        m_coordinator->settings().setLaunchAtLogin(true);
        QCOMPARE(m_desktop->loginItem.registrations, 1);
        m_coordinator->settings().setLaunchAtLogin(false);
        QCOMPARE(m_desktop->loginItem.unregistrations, 2);
    }

    void loginItemIsAppliedOnEveryCall()
    {
        m_coordinator->settings().setLaunchAtLogin(true);
        m_coordinator->applyLaunchAtLogin();
        m_coordinator->applyLaunchAtLogin();
        QCOMPARE(m_desktop->loginItem.registrations, 2);
    }

    void hotkeyRestartsWhenItsSettingsChange()
    {
        start();
        QTest::ignoreMessage(QtInfoMsg, "Hotkey disabled in settings; not starting monitors");
        m_coordinator->settings().setHotkeyEnabled(false);
        QCOMPARE(m_desktop->keyboard.monitorCount(KeyEventScope::global), 0U);
        QTest::ignoreMessage(QtInfoMsg, "Hotkey monitors installed");
        m_coordinator->settings().setHotkeyEnabled(true);
        QCOMPARE(m_desktop->keyboard.monitorCount(KeyEventScope::global), 1U);

        QTest::ignoreMessage(QtInfoMsg, "Hotkey monitors installed");
        m_coordinator->settings().setHotkeyModifier(HotkeyModifier::option);
        m_coordinator->settings().setHotkeyThresholdMs(600); // which is only read
        QCOMPARE(m_desktop->keyboard.monitorCount(KeyEventScope::global), 1U);
    }

    void loginItemFailureIsLoggedAndSettingIsKept()
    {
        m_coordinator->settings().setLaunchAtLogin(true);
        m_desktop->loginItem.outcome = Error{u"Permission denied"_s};
        QTest::ignoreMessage(QtCriticalMsg, "Launch-at-login toggle failed: Permission denied");
        m_coordinator->applyLaunchAtLogin();
        QVERIFY(m_coordinator->settings().launchAtLogin());
    }

    void doubleTapsToggleThePanel()
    {
        start();
        QVERIFY(m_desktop->floatingSurfaces.surfaces.empty());
        expectShowing();
        doubleTap(0ms);
        QCOMPARE(m_desktop->floatingSurfaces.surfaces.size(), size_t(1));
        QVERIFY(panel().isVisible());

        doubleTap(1000ms);
        QVERIFY(!m_coordinator->panelAnimator().visible());
        doubleTap(2000ms); // ignored while the panel hides
        m_desktop->clock.advance(170ms);
        QVERIFY(!panel().isVisible());

        expectShowing();
        doubleTap(3000ms);
        QVERIFY(panel().isVisible());
        QCOMPARE(m_desktop->floatingSurfaces.surfaces.size(), size_t(1));
    }

    void panelClosedByTheWindowManagerHidesAsOnEscape()
    {
        start();
        expectShowing();
        doubleTap(0ms);
        QCloseEvent close;
        QCoreApplication::sendEvent(&panel().window, &close);
        QVERIFY(!close.isAccepted());
        QVERIFY(!m_coordinator->panelAnimator().visible());
        m_desktop->clock.advance(170ms);
        QVERIFY(!panel().isVisible());
        QCOMPARE(panel().orderOuts, 1);
    }

    void panelIsPreparedBeforeTheFirstDoubleTap()
    {
        start();
        m_desktop->clock.advance(1s);
        QCOMPARE(m_desktop->floatingSurfaces.surfaces.size(), size_t(1));
        QVERIFY(!panel().isVisible());
    }

    void recentCopyIsListedWhenThePanelOpens()
    {
        start();
        m_desktop->pasteboard.copy({.text = u"just now"_s});
        expectShowing();
        m_coordinator->togglePanel();
        QCOMPARE(m_coordinator->clipboardVM().items().front().textContent, u"just now"_s);
    }

    void pickedItemIsPastedIntoThePreviousApplication()
    {
        start();
        const auto editor = std::make_shared<FakeRunningApplication>(77, u"editor"_s);
        m_desktop->workspace.frontmost = editor;
        m_desktop->pasteboard.copy({.text = u"a"_s});
        QTest::ignoreMessage(QtInfoMsg, "Panel show: captured target editor pid 77");
        QTest::ignoreMessage(QtInfoMsg, "Panel shown");
        m_coordinator->togglePanel();
        QTest::ignoreMessage(QtInfoMsg, "Paste → editor pid 77; target is frontmost now? true");
        m_coordinator->clipboardVM().pick(m_coordinator->clipboardVM().items().front());
        m_desktop->clock.advance(200ms);
        QCOMPARE(editor->activations, 1);
        QCOMPARE(m_desktop->pasteKeystroke.targets.size(), size_t(1));
    }

private:
    void start()
    {
        QTest::ignoreMessage(QtInfoMsg, "Monitor started");
        QTest::ignoreMessage(QtInfoMsg, "Hotkey monitors installed");
        m_coordinator->start();
    }

    void expectShowing()
    {
        QTest::ignoreMessage(QtInfoMsg, "Panel show: captured target nil pid -1");
        QTest::ignoreMessage(QtInfoMsg, "Panel shown");
    }

    void doubleTap(EventTime time)
    {
        for (const EventTime press : {time, time + 100ms}) {
            m_desktop->keyboard.changeFlags(ModifierFlag::control, press);
            m_desktop->keyboard.changeFlags(0, press + 50ms);
        }
    }

    [[nodiscard]] FakeFloatingSurface& panel() const
    {
        return *m_desktop->floatingSurfaces.surfaces.front();
    }

    std::unique_ptr<FakeDesktop> m_desktop;
    std::unique_ptr<AppCoordinator> m_coordinator;
};

DRIFTBOX_TEST(TestAppCoordinator, QApplication)
#include "TestAppCoordinator.moc"
