#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/keys/X11KeyEventMonitor.h"
#include "platform/x11/keys/X11KeySynthesizer.h"
#include "platform/x11/keys/X11Keyboard.h"
#include "support/VirtualDesktop.h"
#include "support/X11User.h"

#include <optional>

#include <QtTest/QTest>

#include <X11/keysym.h>

using namespace driftbox;

/// Keys that the program types itself do not count as the user's.
class TestX11OwnKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        connection = X11Connection::open();
        QVERIFY(connection);
        keyboard = std::make_unique<X11Keyboard>(*connection);
        monitor = std::make_unique<X11KeyEventMonitor>(*connection, *keyboard);
        token = monitor->addMonitor(KeyEventScope::global,
                                    [this](const KeyEvent& event) { events << event; });
    }

    void cleanup()
    {
        for (const xcb_keysym_t key : {XK_Control_L, XK_Shift_L})
            user.release(key);
        events.clear();
        token.reset();
        monitor.reset();
        keyboard.reset();
        connection.reset();
    }

    void ownShortcutIsNotReported()
    {
        type(PasteShortcut::controlShiftV);
        user.tap(XK_a);
        QTRY_COMPARE(events.size(), 1);
        QCOMPARE(events.first().kind, KeyEventKind::keyDown);
        QCOMPARE(events.first().flags, ModifierFlags(0));
    }

    void userKeysBeforeAndAfterAreReported()
    {
        user.tap(XK_Control_L);
        type(PasteShortcut::controlV);
        user.tap(XK_Control_L);
        QTRY_COMPARE(events.size(), 4);
        QCOMPARE(events.at(0).flags, ModifierFlag::control);
        QCOMPARE(events.at(1).flags, ModifierFlags(0));
        QCOMPARE(events.at(2).flags, ModifierFlag::control);
        QCOMPARE(events.at(3).flags, ModifierFlags(0));
    }

    void modifierLiftedForTheShortcutStaysReleased()
    {
        user.press(XK_Shift_L);
        QTRY_COMPARE(events.size(), 1);
        type(PasteShortcut::controlV);
        user.tap(XK_a);
        QTRY_COMPARE(events.size(), 2);
        QCOMPARE(events.at(1).kind, KeyEventKind::keyDown);
        QCOMPARE(events.at(1).flags, ModifierFlags(0));
    }

private:
    void type(PasteShortcut shortcut)
    {
        X11KeySynthesizer typist(*connection, *keyboard);
        std::optional<bool> answer;
        typist.type(shortcut, [&answer](bool isTyped) { answer = isTyped; });
        QTRY_VERIFY(answer);
        QVERIFY(*answer);
    }

    X11User user;
    std::unique_ptr<X11Connection> connection;
    std::unique_ptr<X11Keyboard> keyboard;
    std::unique_ptr<X11KeyEventMonitor> monitor;
    std::unique_ptr<MonitorToken> token;
    QList<KeyEvent> events;
};

DRIFTBOX_DISPLAY_TEST(TestX11OwnKeys)

#include "TestX11OwnKeys.moc"
