#include "platform/x11/keys/PressedModifiers.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;

namespace {

constexpr PressedModifiers::Keycode leftControl = 37;
constexpr PressedModifiers::Keycode rightControl = 105;
constexpr PressedModifiers::Keycode leftShift = 50;
constexpr PressedModifiers::Keyboard laptop = 9;
constexpr PressedModifiers::Keyboard external = 12;

ModifierFlags flagsOf(PressedModifiers::Keycode code)
{
    switch (code) {
    case leftControl:
    case rightControl:
        return ModifierFlag::control;
    case leftShift:
        return ModifierFlag::shift;
    default:
        return 0;
    }
}

bool isModifier(PressedModifiers::Keycode code)
{
    return flagsOf(code) != 0;
}

} // namespace

class TestPressedModifiers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eitherKeyOfAPairSetsTheFlag()
    {
        PressedModifiers pressed(flagsOf);
        QVERIFY(pressed.press(laptop, leftControl));
        QVERIFY(pressed.press(laptop, rightControl));
        pressed.release(laptop, leftControl);
        QCOMPARE(pressed.flags(), ModifierFlag::control);
        pressed.release(laptop, rightControl);
        QCOMPARE(pressed.flags(), ModifierFlags(0));
        QVERIFY(pressed.isEmpty());
    }

    void sameKeyOfTwoKeyboardsCountsTwice()
    {
        PressedModifiers pressed(flagsOf);
        QVERIFY(pressed.press(laptop, leftControl));
        QVERIFY(pressed.press(external, leftControl));
        pressed.release(external, leftControl);
        QCOMPARE(pressed.flags(), ModifierFlag::control);
    }

    void secondPressImpliesAMissedRelease()
    {
        PressedModifiers pressed(flagsOf);
        QVERIFY(pressed.press(laptop, leftControl));
        QVERIFY(!pressed.press(laptop, leftControl));
    }

    void releaseWithoutAPressIsIgnored()
    {
        PressedModifiers pressed(flagsOf);
        pressed.release(laptop, leftShift);
        QVERIFY(pressed.isEmpty());
    }

    void resynchronizingRemovesAndAddsKeys()
    {
        PressedModifiers pressed(flagsOf);
        pressed.press(laptop, leftControl);
        constexpr PressedModifiers::Keycode letter = 30;
        pressed.resynchronize(
            [](PressedModifiers::Keycode code) { return code == leftShift || code == letter; },
            isModifier);
        QCOMPARE(pressed.flags(), ModifierFlag::shift);

        pressed.release(external, leftShift);
        QVERIFY(pressed.isEmpty());
    }

    void remappedKeyHasItsNewMeaning()
    {
        ModifierFlags meaning = ModifierFlag::control;
        PressedModifiers pressed([&](PressedModifiers::Keycode) { return meaning; });
        pressed.press(laptop, leftControl);
        meaning = ModifierFlag::option;
        QCOMPARE(pressed.flags(), ModifierFlag::option);
    }
};

DRIFTBOX_TEST(TestPressedModifiers, QCoreApplication)
#include "TestPressedModifiers.moc"
