#include "panel/HotkeyManager.h"

#include "core/AppSettings.h"
#include "fakes/FakeKeyEventMonitor.h"
#include "fakes/FakeUserDefaults.h"
#include "support/main/TestMain.h"

#include <optional>

#include <QtTest/QTest>

using namespace driftbox;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

/// A started manager with a keyboard to tap on.
struct Desk
{
    explicit Desk(HotkeyModifier modifier = HotkeyModifier::control)
    {
        settings.setHotkeyModifier(modifier);
        manager->setOnTrigger([this] { ++triggers; });
        manager->start();
    }

    void tap(EventTime time, ModifierFlags flag = ModifierFlag::control, ModifierFlags held = 0)
    {
        keyboard.changeFlags(held | flag, time);
        keyboard.changeFlags(held, time + 20ms);
    }

    FakeUserDefaults defaults;
    AppSettings settings{defaults};
    FakeKeyEventMonitor keyboard;
    int triggers = 0;
    std::optional<HotkeyManager> manager{std::in_place, settings, keyboard};
};

} // namespace

class TestHotkeyManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void twoQuickTapsTriggerOnce()
    {
        Desk desk;
        desk.keyboard.changeFlags(ModifierFlag::control, 0ms);
        desk.keyboard.changeFlags(0, 80ms);
        QCOMPARE(desk.triggers, 0);
        desk.keyboard.changeFlags(ModifierFlag::control, 250ms);
        QCOMPARE(desk.triggers, 1);
        desk.keyboard.changeFlags(0, 300ms);
        QCOMPARE(desk.triggers, 1);
    }

    void tapsTooFarApartDoNotTriggerButCountAsFirst()
    {
        Desk desk;
        desk.tap(0ms);
        desk.tap(301ms);
        QCOMPARE(desk.triggers, 0);
        desk.tap(500ms);
        QCOMPARE(desk.triggers, 1);
    }

    void keyBetweenTheTapsPreventsTheTrigger()
    {
        Desk desk;
        desk.tap(0ms);
        desk.keyboard.pressKey(60ms);
        desk.tap(100ms);
        QCOMPARE(desk.triggers, 0);
    }

    void threeTapsTriggerOnTheSecondAndOnTheThird()
    {
        Desk desk;
        desk.tap(0ms);
        desk.tap(100ms);
        QCOMPARE(desk.triggers, 1);
        desk.tap(200ms);
        QCOMPARE(desk.triggers, 2);
    }

    void heldShiftDoesNotMatter()
    {
        Desk desk;
        desk.keyboard.changeFlags(ModifierFlag::shift, 0ms);
        desk.tap(10ms, ModifierFlag::control, ModifierFlag::shift);
        desk.tap(100ms, ModifierFlag::control, ModifierFlag::shift);
        QCOMPARE(desk.triggers, 1);
    }

    void otherModifiersAloneNeverTrigger_data()
    {
        QTest::addColumn<quint64>("flag");
        QTest::newRow("shift") << quint64(ModifierFlag::shift);
        QTest::newRow("option") << quint64(ModifierFlag::option);
        QTest::newRow("command") << quint64(ModifierFlag::command);
    }
    void otherModifiersAloneNeverTrigger()
    {
        QFETCH(quint64, flag);
        Desk desk;
        desk.tap(0ms, flag);
        desk.tap(100ms, flag);
        QCOMPARE(desk.triggers, 0);
    }

    void onlyPressesOfTheChosenModifierCount()
    {
        Desk desk;
        desk.keyboard.changeFlags(ModifierFlag::option, 0ms);
        desk.keyboard.changeFlags(ModifierFlag::option | ModifierFlag::control, 10ms);
        // Neither the release of option nor its new press is an edge of control.
        desk.keyboard.changeFlags(ModifierFlag::control, 50ms);
        desk.keyboard.changeFlags(ModifierFlag::control | ModifierFlag::option, 60ms);
        QCOMPARE(desk.triggers, 0);
        desk.keyboard.changeFlags(ModifierFlag::option, 70ms);
        desk.keyboard.changeFlags(ModifierFlag::option | ModifierFlag::control, 100ms);
        QCOMPARE(desk.triggers, 1);
    }

    void eachModifierCanBeChosen_data()
    {
        QTest::addColumn<HotkeyModifier>("modifier");
        QTest::addColumn<quint64>("flag");
        QTest::newRow("control") << HotkeyModifier::control << quint64(0x40000);
        QTest::newRow("option") << HotkeyModifier::option << quint64(0x80000);
        QTest::newRow("command") << HotkeyModifier::command << quint64(0x100000);
    }
    void eachModifierCanBeChosen()
    {
        QFETCH(HotkeyModifier, modifier);
        QFETCH(quint64, flag);
        Desk desk(modifier);
        desk.tap(0ms, flag);
        desk.tap(100ms, flag);
        QCOMPARE(desk.triggers, 1);
    }

    void shortcutBetweenTwoCommandTapsPreventsTheTrigger()
    {
        Desk desk(HotkeyModifier::command);
        desk.keyboard.changeFlags(ModifierFlag::command, 0ms);
        desk.keyboard.pressKey(20ms);
        desk.keyboard.changeFlags(0, 40ms);
        desk.keyboard.changeFlags(ModifierFlag::command, 100ms);
        QCOMPARE(desk.triggers, 0);
    }

    void zeroThresholdRequiresSimultaneousTaps()
    {
        Desk desk;
        desk.settings.setHotkeyThresholdMs(0);
        desk.tap(0ms);
        desk.tap(21ms);
        QCOMPARE(desk.triggers, 0);
        desk.keyboard.changeFlags(0, 21ms);
        desk.keyboard.changeFlags(ModifierFlag::control, 21ms);
        QCOMPARE(desk.triggers, 1);
    }

    void settingsAreReadOnEveryEvent()
    {
        Desk desk;
        desk.settings.setHotkeyThresholdMs(1'000);
        desk.tap(0ms);
        desk.tap(900ms);
        QCOMPARE(desk.triggers, 1);

        desk.settings.setHotkeyModifier(HotkeyModifier::option);
        desk.tap(5'000ms, ModifierFlag::option);
        desk.tap(5'100ms, ModifierFlag::option);
        QCOMPARE(desk.triggers, 2);
    }

    void tapsInThisProgramAndInOthersCountTogether()
    {
        Desk desk;
        desk.keyboard.changeFlags(ModifierFlag::control, 0ms, KeyEventScope::global);
        desk.keyboard.changeFlags(0, 20ms, KeyEventScope::local);
        desk.keyboard.changeFlags(ModifierFlag::control, 100ms, KeyEventScope::local);
        QCOMPARE(desk.triggers, 1);
    }

    void startingTwiceInstallsOnePairOfMonitors()
    {
        Desk desk;
        desk.manager->start();
        QCOMPARE(desk.keyboard.monitorCount(KeyEventScope::global), 1U);
        QCOMPARE(desk.keyboard.monitorCount(KeyEventScope::local), 1U);
    }

    void installingIsLogged()
    {
        QTest::ignoreMessage(QtInfoMsg, "Hotkey monitors installed");
        const Desk desk;
        QCOMPARE(desk.triggers, 0);
    }

    void disabledHotkeyInstallsNoMonitors()
    {
        Desk desk;
        desk.manager->uninstall();
        desk.settings.setHotkeyEnabled(false);
        QTest::ignoreMessage(QtInfoMsg, "Hotkey disabled in settings; not starting monitors");
        desk.manager->start();
        QCOMPARE(desk.keyboard.monitorCount(KeyEventScope::global), 0U);
        QCOMPARE(desk.keyboard.monitorCount(KeyEventScope::local), 0U);
    }

    void startingDoesNotRemoveInstalledMonitors()
    {
        Desk desk;
        desk.settings.setHotkeyEnabled(false);
        desk.manager->start();
        QCOMPARE(desk.keyboard.monitorCount(KeyEventScope::global), 1U);
    }

    void uninstallingStopsWatchingAndRemembersTheLastTap()
    {
        Desk desk;
        desk.tap(0ms);
        desk.manager->uninstall();
        QCOMPARE(desk.keyboard.monitorCount(KeyEventScope::global), 0U);
        QCOMPARE(desk.keyboard.monitorCount(KeyEventScope::local), 0U);
        desk.tap(50ms);
        QCOMPARE(desk.triggers, 0);

        desk.manager->uninstall();
        desk.manager->start();
        desk.tap(200ms);
        QCOMPARE(desk.triggers, 1);
    }

    void restartingForgetsTheLastTapAndPressedModifiers()
    {
        Desk desk;
        desk.tap(0ms);
        desk.manager->restart();
        QCOMPARE(desk.keyboard.monitorCount(KeyEventScope::global), 1U);
        desk.tap(100ms);
        QCOMPARE(desk.triggers, 0);

        desk.keyboard.changeFlags(ModifierFlag::control, 1'000ms);
        desk.manager->restart(); // the key is released while nothing is monitored
        desk.keyboard.changeFlags(ModifierFlag::control, 2'000ms);
        desk.keyboard.changeFlags(0, 2'050ms);
        desk.keyboard.changeFlags(ModifierFlag::control, 2'100ms);
        QCOMPARE(desk.triggers, 1);
    }

    void keyBeforeTheRestartIsForgotten()
    {
        Desk desk;
        desk.keyboard.pressKey(0ms);
        desk.manager->restart();
        desk.tap(50ms);
        desk.tap(150ms);
        QCOMPARE(desk.triggers, 1);
    }

    void restartingAppliesTheEnabledSetting()
    {
        Desk desk;
        desk.settings.setHotkeyEnabled(false);
        QTest::ignoreMessage(QtInfoMsg, "Hotkey disabled in settings; not starting monitors");
        desk.manager->restart();
        QCOMPARE(desk.keyboard.monitorCount(KeyEventScope::global), 0U);
        QCOMPARE(desk.keyboard.monitorCount(KeyEventScope::local), 0U);
    }

    void monitorsAreInstalledEvenWithoutPermission()
    {
        Desk desk;
        desk.manager->uninstall();
        desk.keyboard.trusted = false;
        QTest::ignoreMessage(QtWarningMsg,
                             "Accessibility not granted; hotkey monitors will not receive events");
        desk.manager->start();
        QCOMPARE(desk.keyboard.monitorCount(KeyEventScope::global), 1U);
    }

    void doubleTapWithoutACallbackDoesNothing()
    {
        Desk desk;
        desk.manager->setOnTrigger({});
        desk.tap(0ms);
        desk.tap(100ms);
        QCOMPARE(desk.triggers, 0);
    }

    void callbackMayRestartTheManager()
    {
        Desk desk;
        desk.manager->setOnTrigger([&desk] {
            ++desk.triggers;
            desk.manager->uninstall();
            desk.manager->start();
        });
        desk.tap(0ms);
        desk.tap(100ms);
        QCOMPARE(desk.triggers, 1);
        desk.tap(200ms);
        QCOMPARE(desk.triggers, 2);
    }

    void eventsAfterDestructionAreIgnored()
    {
        Desk desk;
        desk.manager.reset();
        desk.tap(0ms);
        desk.tap(100ms);
        QCOMPARE(desk.triggers, 0);
    }

    void permissionIsRequestedOnceAndTheRequestRememberedFirst()
    {
        FakeUserDefaults defaults;
        FakeKeyEventMonitor keyboard;
        keyboard.trusted = false;
        keyboard.onTrustRequest = [&defaults] {
            QCOMPARE(defaults.value(u"accessibility.didPrompt"_s), DefaultsValue(true));
        };

        HotkeyManager::promptForAccessibilityIfNeeded(keyboard, defaults);
        QCOMPARE(keyboard.trustRequests, 1);
        QCOMPARE(defaults.value(u"accessibility.didPrompt"_s), DefaultsValue(true));

        HotkeyManager::promptForAccessibilityIfNeeded(keyboard, defaults);
        QCOMPARE(keyboard.trustRequests, 1);
        QCOMPARE(defaults.writes, 1);
    }

    void grantedPermissionIsNotRequested()
    {
        FakeUserDefaults defaults;
        FakeKeyEventMonitor keyboard;
        HotkeyManager::promptForAccessibilityIfNeeded(keyboard, defaults);
        QCOMPARE(keyboard.trustRequests, 0);
        QCOMPARE(defaults.writes, 0);
    }

    void promptFlagOfAnotherTypeCountsAsAbsent()
    {
        FakeUserDefaults defaults;
        defaults.values.insert(u"accessibility.didPrompt"_s, u"true"_s);
        FakeKeyEventMonitor keyboard;
        keyboard.trusted = false;
        HotkeyManager::promptForAccessibilityIfNeeded(keyboard, defaults);
        QCOMPARE(keyboard.trustRequests, 1);
    }
};

DRIFTBOX_TEST(TestHotkeyManager, QCoreApplication)
#include "TestHotkeyManager.moc"
