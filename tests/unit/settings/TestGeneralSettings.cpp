#include "support/main/TestMain.h"
#include "unit/settings/SettingsDesk.h"

#include "settings/GeneralSettings.h"
#include "settings/ModifierName.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestGeneralSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void modifiersHaveTheirNames()
    {
        QCOMPARE(modifierName(HotkeyModifier::control), u"⌃ Control"_s);
        QCOMPARE(modifierName(HotkeyModifier::option), u"⌥ Option"_s);
        QCOMPARE(modifierName(HotkeyModifier::command), u"⌘ Command"_s);
    }

    void textsNameTheModifierImmediately()
    {
        SettingsDesk desk;
        GeneralSettings page(desk.services);
        QCOMPARE(page.toggleLabel(), u"Enable double-tap ⌃ Control to summon"_s);
        page.setModifier(HotkeyModifier::option);
        QCOMPARE(page.toggleLabel(), u"Enable double-tap ⌥ Option to summon"_s);
        QCOMPARE(page.accessibilityText(),
                 u"Required for the double-tap ⌥ Option hotkey to work across apps."_s);
        QCOMPARE(std::get<QString>(desk.defaults.values[u"settings.hotkeyModifier"_s]),
                 u"option"_s);
    }

    void toggleAndModifierAreStored()
    {
        SettingsDesk desk;
        GeneralSettings page(desk.services);
        QSignalSpy changed(&page, &GeneralSettings::changed);
        page.setHotkeyEnabled(false);
        QVERIFY(!desk.settings.hotkeyEnabled());
        page.setModifier(HotkeyModifier::command);
        QCOMPARE(desk.settings.hotkeyModifier(), HotkeyModifier::command);
        QCOMPARE(changed.count(), 2);
    }

    void unchangedValuesAreNotStored()
    {
        SettingsDesk desk;
        GeneralSettings page(desk.services);
        page.setHotkeyEnabled(page.isHotkeyEnabled());
        page.setModifier(page.modifier());
        page.setLaunchesAtLogin(page.launchesAtLogin());
        QVERIFY(desk.defaults.values.isEmpty());
    }

    void speedIsStoredInWholeMilliseconds()
    {
        SettingsDesk desk;
        GeneralSettings page(desk.services);
        QSignalSpy changed(&page, &GeneralSettings::changed);
        page.setThreshold(449.9);
        QCOMPARE(desk.settings.hotkeyThresholdMs(), 449);
        QCOMPARE(page.thresholdText(), u"449 ms"_s);
        QCOMPARE(changed.count(), 1);
    }

    void sliderPositionsAreWholeSteps_data()
    {
        QTest::addColumn<double>("milliseconds");
        QTest::addColumn<int>("step");
        QTest::newRow("left of the end") << -1000.0 << 150;
        QTest::newRow("left end") << 150.0 << 150;
        QTest::newRow("below the middle") << 174.0 << 150;
        QTest::newRow("above the middle") << 176.0 << 200;
        QTest::newRow("between") << 320.0 << 300;
        QTest::newRow("right end") << 600.0 << 600;
        QTest::newRow("right of the end") << 1e9 << 600;
    }
    void sliderPositionsAreWholeSteps()
    {
        QFETCH(const double, milliseconds);
        QFETCH(const int, step);
        QCOMPARE(GeneralSettings::nearestStep(milliseconds), step);
    }

    void launchAtLoginIsStored()
    {
        SettingsDesk desk;
        GeneralSettings page(desk.services);
        page.setLaunchesAtLogin(true);
        QVERIFY(desk.settings.launchAtLogin());
        page.setLaunchesAtLogin(false);
        QVERIFY(!desk.settings.launchAtLogin());
    }

    void permissionIsTheLastOneChecked()
    {
        SettingsDesk desk;
        GeneralSettings page(desk.services);
        QSignalSpy changed(&page, &GeneralSettings::changed);
        QVERIFY(!page.isAccessibilityGranted());
        QCOMPARE(desk.trustQuestions, 0);
        page.recheckAccessibility();
        QCOMPARE(page.accessibilityText(), u"Granted — the global hotkey is active."_s);
        QCOMPARE(changed.count(), 1);

        desk.isTrusted = false;
        QVERIFY(page.isAccessibilityGranted());
        page.requestAccessibility();
        page.openAccessibilitySettings();
        QVERIFY(page.isAccessibilityGranted()); // neither looks
        page.recheckAccessibility();
        QVERIFY(!page.isAccessibilityGranted());
        QCOMPARE(desk.trustRequests, 1);
        QCOMPARE(desk.settingsOpened, 1);
    }
};

DRIFTBOX_TEST(TestGeneralSettings, QCoreApplication)
#include "TestGeneralSettings.moc"
