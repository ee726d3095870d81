#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/keys/X11KeyEventMonitor.h"
#include "platform/x11/keys/X11Keyboard.h"
#include "support/KeyboardLayout.h"
#include "support/VirtualDesktop.h"
#include "support/X11Client.h"
#include "support/X11User.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>
#include <QtGui/QGuiApplication>
#include <QtGui/QWindow>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <X11/keysym.h>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

/// Records what the monitors of one scope see.
struct Record
{
    Record(KeyEventMonitor& monitor, KeyEventScope scope)
        : token(monitor.addMonitor(scope, [this](const KeyEvent& event) { events << event; }))
    {
    }
    [[nodiscard]] QList<ModifierFlags> flags() const
    {
        QList<ModifierFlags> list;
        for (const KeyEvent& event : events)
            list << event.flags;
        return list;
    }

    QList<KeyEvent> events;
    std::unique_ptr<MonitorToken> token;
};

/// Another layout, once the keyboard knows of it.
class Layout
{
public:
    Layout(const X11Keyboard& keyboard, const QStringList& settings)
        : m_changed(&keyboard, &X11Keyboard::mappingChanged)
        , m_layout(settings)
    {
        while (m_changed.wait(200)) {
        }
    }

private:
    QSignalSpy m_changed;
    KeyboardLayout m_layout;
};

} // namespace

class TestX11KeyEventMonitor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        connection = X11Connection::open();
        QVERIFY(connection);
        keyboard = std::make_unique<X11Keyboard>(*connection);
        monitor = std::make_unique<X11KeyEventMonitor>(*connection, *keyboard);
    }

    void cleanup()
    {
        for (const xcb_keysym_t key :
             {XK_Control_L, XK_Control_R, XK_Alt_L, XK_Super_L, XK_Shift_L, XK_a})
            user.release(key);
        monitor.reset();
        keyboard.reset();
        connection.reset();
    }

    void monitorIsTrusted() { QVERIFY(monitor->isTrusted()); }

    void bothControlKeysSetTheFlag()
    {
        const Record global(*monitor, KeyEventScope::global);
        for (const xcb_keysym_t control : {XK_Control_L, XK_Control_R})
            user.tap(control);
        QTRY_COMPARE(global.flags(),
                     (QList<ModifierFlags>{ModifierFlag::control, 0, ModifierFlag::control, 0}));
        for (const KeyEvent& event : global.events)
            QCOMPARE(event.kind, KeyEventKind::flagsChanged);
    }

    void everyModifierHasItsFlag()
    {
        const Record global(*monitor, KeyEventScope::global);
        user.press(XK_Alt_L);
        user.press(XK_Super_L);
        user.press(XK_Shift_L);
        user.release(XK_Alt_L);
        using namespace ModifierFlag;
        QTRY_COMPARE(global.flags(),
                     (QList<ModifierFlags>{option, option | command, option | command | shift,
                                           command | shift}));
    }

    void otherKeysAreKeyDownsWithTheHeldModifiers()
    {
        const Record global(*monitor, KeyEventScope::global);
        user.press(XK_Control_L);
        user.tap(XK_c);
        user.release(XK_Control_L);
        QTRY_COMPARE(global.events.size(), 3);
        QCOMPARE(global.events[1].kind, KeyEventKind::keyDown);
        QCOMPARE(global.events[1].flags, ModifierFlag::control);
    }

    void lockKeysAreNotKeyDowns()
    {
        const Record global(*monitor, KeyEventScope::global);
        user.tap(XK_Caps_Lock);
        user.tap(XK_Caps_Lock);
        user.tap(XK_a);
        QTRY_COMPARE(global.events.size(), 5);
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(global.events[i].kind, KeyEventKind::flagsChanged);
            QCOMPARE(global.events[i].flags, ModifierFlags(0));
        }
    }

    void heldKeyDoesNotRepeat()
    {
        QProcess::execute(u"xset"_s, {u"r"_s, u"rate"_s, u"20"_s, u"200"_s});
        X11Client client;
        QTRY_VERIFY(client.hasFocus());
        const Record global(*monitor, KeyEventScope::global);
        user.press(XK_a);
        QTRY_VERIFY(client.keys().size() > 6); // the client sees the repetitions
        user.release(XK_a);
        user.tap(XK_Control_L);
        QTRY_COMPARE(global.events.size(), 3);
        QCOMPARE(global.events[0].kind, KeyEventKind::keyDown);
    }

    void timesAreServerTimes()
    {
        const Record global(*monitor, KeyEventScope::global);
        QElapsedTimer all;
        all.start();
        user.press(XK_Control_L);
        QElapsedTimer between;
        between.start();
        QTest::qWait(60); // what is measured: the distance of two presses
        const qint64 least = between.elapsed();
        user.release(XK_Control_L);
        const qint64 most = all.elapsed();
        QTRY_COMPARE(global.events.size(), 2);
        const auto held = global.events[1].time - global.events[0].time;
        constexpr qint64 rounding = 1;
        QVERIFY(held.count() >= least - rounding && held.count() <= most + rounding);
    }

    void keysArriveDuringAnotherClientsGrab()
    {
        X11Client client;
        QTRY_VERIFY(client.hasFocus());
        const auto cookie = xcb_grab_keyboard(client.xcb(), true, client.window(), XCB_CURRENT_TIME,
                                              XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        auto* reply = xcb_grab_keyboard_reply(client.xcb(), cookie, nullptr);
        QCOMPARE(int(reply->status), int(XCB_GRAB_STATUS_SUCCESS));
        free(reply);
        const Record global(*monitor, KeyEventScope::global);
        user.tap(XK_Control_L);
        QTRY_COMPARE(global.events.size(), 2);
    }

    void modifiersHeldBeforeTheStartAreKnown()
    {
        user.press(XK_Shift_L);
        const Record global(*monitor, KeyEventScope::global);
        user.press(XK_Control_L);
        user.release(XK_Shift_L);
        using namespace ModifierFlag;
        QTRY_COMPARE(global.flags(), (QList<ModifierFlags>{shift | control, control}));
    }

    void keysReleasedWithoutListenersAreForgotten()
    {
        auto first = std::make_unique<Record>(*monitor, KeyEventScope::global);
        user.press(XK_Control_L);
        QTRY_COMPARE(first->events.size(), 1);
        first.reset();
        // Twice: the first event tells the monitor that it has no listener left.
        user.tap(XK_a);
        QTest::qWait(50); // the time in which nothing must arrive
        user.release(XK_Control_L);
        const Record second(*monitor, KeyEventScope::global);
        user.tap(XK_a);
        QTRY_COMPARE(second.flags(), (QList<ModifierFlags>{0}));
    }

    void remappedKeysHaveTheirNewMeaning()
    {
        const Layout layout(*keyboard, {u"-option"_s, u"ctrl:nocaps"_s});
        const Record global(*monitor, KeyEventScope::global);
        // The Caps Lock key has become a Control key; Control_L is found on both.
        const auto capsLock = xcb_keycode_t(66);
        QVERIFY(keyboard->flagsOf(capsLock) == ModifierFlag::control);
        QProcess::execute(u"xdotool"_s, {u"key"_s, QString::number(capsLock)});
        QTRY_VERIFY(global.flags().contains(ModifierFlag::control));
    }

    void swappedAltAndSuperAreSwapped()
    {
        const Layout layout(*keyboard, {u"-option"_s, u"altwin:swap_lalt_lwin"_s});
        QCOMPARE(keyboard->flagsOf(64), ModifierFlag::command);
        QCOMPARE(keyboard->flagsOf(133), ModifierFlag::option);
    }

    void keysOfSecondaryLayoutsAreFound()
    {
        const Layout layout(*keyboard, {u"-layout"_s, u"ru,us(dvorak)"_s});
        const auto v = keyboard->keyWith(XK_v, 0);
        QVERIFY(v);
        QCOMPARE(int(v->code), 60); // where a US keyboard has the full stop
        QCOMPARE(v->group, std::optional<std::uint8_t>(1));
        const auto control = keyboard->keyWith(XK_Control_L, 0);
        QVERIFY(control);
        QVERIFY(!control->group);
        QVERIFY(!keyboard->keyWith(XK_Greek_alpha, 0));
    }

    void eventsGoToOneScope()
    {
        const Record global(*monitor, KeyEventScope::global);
        const Record local(*monitor, KeyEventScope::local);
        user.tap(XK_Control_L);
        QTRY_COMPARE(global.events.size(), 2);
        QCOMPARE(local.events.size(), 0);

        QWindow window;
        window.resize(200, 100);
        window.show();
        window.requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        user.tap(XK_Control_L);
        QTRY_COMPARE(local.events.size(), 2);
        QCOMPARE(global.events.size(), 2);
    }

    void malformedEventsAreIgnored()
    {
        const Record global(*monitor, KeyEventScope::global);
        X11Client client;
        xcb_client_message_event_t message = {};
        message.response_type = XCB_GE_GENERIC;
        xcb_send_event(client.xcb(), false, client.root(), XCB_EVENT_MASK_PROPERTY_CHANGE,
                       reinterpret_cast<const char*>(&message));
        xcb_flush(client.xcb());
        user.tap(XK_Control_L);
        QTRY_COMPARE(global.events.size(), 2);
    }

private:
    X11User user;
    std::unique_ptr<X11Connection> connection;
    std::unique_ptr<X11Keyboard> keyboard;
    std::unique_ptr<X11KeyEventMonitor> monitor;
};

DRIFTBOX_DISPLAY_TEST(TestX11KeyEventMonitor)
#include "TestX11KeyEventMonitor.moc"
