#include "core/AppSettings.h"
#include "fakes/FakeUserDefaults.h"
#include "support/main/TestMain.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestAppSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstStartUsesTheDefaultsAndWritesNothing()
    {
        FakeUserDefaults defaults;
        const AppSettings settings(defaults);

        verifyDefaults(settings);
        QCOMPARE(defaults.writes, 0);
    }

    void storedValuesAreLoaded()
    {
        FakeUserDefaults defaults;
        defaults.values = {
            {u"settings.clipboardCapacity"_s, qint64(-3)},
            {u"settings.hotkeyEnabled"_s, false},
            {u"settings.hotkeyModifier"_s, u"option"_s},
            {u"settings.hotkeyThresholdMs"_s, qint64(0)},
            {u"settings.launchAtLogin"_s, true},
            {u"settings.noteDefaultColor"_s, u"pink"_s},
        };
        const AppSettings settings(defaults);

        QCOMPARE(settings.clipboardCapacity(), -3);
        QCOMPARE(settings.hotkeyEnabled(), false);
        QCOMPARE(settings.hotkeyModifier(), HotkeyModifier::option);
        QCOMPARE(settings.hotkeyThresholdMs(), 0);
        QCOMPARE(settings.launchAtLogin(), true);
        QCOMPARE(settings.noteDefaultColor(), NoteColor::pink);
    }

    void valuesOfTheWrongTypeFallBackAndAreNotOverwritten()
    {
        FakeUserDefaults defaults;
        defaults.values = {
            {u"settings.clipboardCapacity"_s, u"40"_s},  {u"settings.hotkeyEnabled"_s, qint64(0)},
            {u"settings.hotkeyModifier"_s, u"Option"_s}, {u"settings.hotkeyThresholdMs"_s, 250.5},
            {u"settings.launchAtLogin"_s, u"true"_s},    {u"settings.noteDefaultColor"_s, true},
        };
        const auto before = defaults.values;
        const AppSettings settings(defaults);

        verifyDefaults(settings);
        QCOMPARE(defaults.values, before);
    }

    void assigningTheSameValueWritesButNotifiesNobody()
    {
        FakeUserDefaults defaults;
        AppSettings settings(defaults);
        const QSignalSpy changed(&settings, &AppSettings::clipboardCapacityChanged);

        settings.setClipboardCapacity(30);
        QCOMPARE(defaults.values.value(u"settings.clipboardCapacity"_s), DefaultsValue(qint64(30)));
        QCOMPARE(changed.count(), 0);

        settings.setClipboardCapacity(31);
        QCOMPARE(changed.count(), 1);
    }

    void assignmentsAreStoredUnderTheirKeys()
    {
        FakeUserDefaults defaults;
        AppSettings settings(defaults);

        settings.setClipboardCapacity(0);
        settings.setHotkeyEnabled(false);
        settings.setHotkeyModifier(HotkeyModifier::command);
        settings.setHotkeyThresholdMs(450);
        settings.setLaunchAtLogin(true);
        settings.setNoteDefaultColor(NoteColor::green);

        QCOMPARE(defaults.values.value(u"settings.hotkeyModifier"_s), DefaultsValue(u"command"_s));
        QCOMPARE(defaults.values.value(u"settings.noteDefaultColor"_s), DefaultsValue(u"green"_s));

        const AppSettings loaded(defaults);
        QCOMPARE(loaded.clipboardCapacity(), 0);
        QCOMPARE(loaded.hotkeyEnabled(), false);
        QCOMPARE(loaded.hotkeyModifier(), HotkeyModifier::command);
        QCOMPARE(loaded.hotkeyThresholdMs(), 450);
        QCOMPARE(loaded.launchAtLogin(), true);
        QCOMPARE(loaded.noteDefaultColor(), NoteColor::green);
    }

private:
    static void verifyDefaults(const AppSettings& settings)
    {
        QCOMPARE(settings.clipboardCapacity(), 30);
        QCOMPARE(settings.hotkeyEnabled(), true);
        QCOMPARE(settings.hotkeyModifier(), HotkeyModifier::control);
        QCOMPARE(settings.hotkeyThresholdMs(), 300);
        QCOMPARE(settings.launchAtLogin(), false);
        QCOMPARE(settings.noteDefaultColor(), NoteColor::yellow);
    }
};

DRIFTBOX_TEST(TestAppSettings, QCoreApplication)
#include "TestAppSettings.moc"
