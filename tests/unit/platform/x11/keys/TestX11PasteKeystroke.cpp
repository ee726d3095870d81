#include "fakes/FakeWorkspace.h"
#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/keys/X11Keyboard.h"
#include "platform/x11/keys/X11PasteKeystroke.h"
#include "platform/x11/keys/Xkb.h"
#include "platform/x11/selection/PrimarySelection.h"
#include "platform/x11/windows/X11RunningApplication.h"
#include "support/AwaitedLine.h"
#include "support/KeyboardLayout.h"
#include "support/OwnedReply.h"
#include "support/VirtualDesktop.h"
#include "support/X11Client.h"
#include "support/X11User.h"

#include <semaphore>
#include <thread>

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

#include <X11/keysym.h>
#include <xcb/xcbext.h>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

constexpr std::uint16_t shiftMask = XCB_MOD_MASK_SHIFT;
constexpr std::uint16_t controlMask = XCB_MOD_MASK_CONTROL;

/// Answers from the event loop, as the real one does, and counts.
class CountingPrimarySelection final : public PrimarySelection
{
public:
    void offerPasteboardText(QObject* owner, std::function<void()> offered) override
    {
        ++offers;
        QTimer::singleShot(0, owner, std::move(offered));
    }

    int offers = 0;
};

/// A program that has the server to itself: nobody else gets an answer until it lets go.
class ServerGrab
{
public:
    ServerGrab()
    {
        xcb_grab_server(m_xcb);
        (void)owned(xcb_get_input_focus_reply(m_xcb, xcb_get_input_focus(m_xcb), nullptr));
        m_end = std::jthread([this] {
            m_isAskedInTime = m_letGo.try_acquire_for(std::chrono::seconds(5));
            xcb_disconnect(m_xcb);
        });
    }

    /// Returns whether it was still there: it gives way to a test that waits for the server.
    [[nodiscard]] bool letGo()
    {
        m_letGo.release();
        m_end.join();
        return m_isAskedInTime;
    }

private:
    xcb_connection_t* m_xcb = xcb_connect(nullptr, nullptr);
    std::binary_semaphore m_letGo{0};
    bool m_isAskedInTime = false;
    std::jthread m_end;
};

/// The modifiers at each press of a key that is no modifier itself.
struct Stroke
{
    xcb_keycode_t code;
    std::uint16_t modifiers;
    int group;
    bool operator==(const Stroke&) const = default;
};

} // namespace

class TestX11PasteKeystroke : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        connection = X11Connection::open();
        QVERIFY(connection);
        primary.offers = 0;
        makeKeystroke();
    }

    void cleanup()
    {
        for (const xcb_keysym_t key : {XK_Control_L, XK_Control_R, XK_Shift_L, XK_Alt_L})
            user.release(key);
        keystroke.reset();
        keyboard.reset();
        connection.reset();
    }

    void targetGetsOnlyControlV()
    {
        X11Client client;
        QTRY_VERIFY(client.hasFocus());
        keystroke->send(applicationOf(client));

        const auto control = user.keycodeOf(XK_Control_L);
        const auto v = user.keycodeOf(XK_v);
        const std::vector<X11Client::Key> expected = {{true, control, 0, 0},
                                                      {true, v, controlMask, 0},
                                                      {false, v, controlMask, 0},
                                                      {false, control, controlMask, 0}};
        QTRY_COMPARE(client.keys().size(), expected.size());
        QVERIFY(client.keys() == expected);
        QCOMPARE(primary.offers, 0);
    }

    void terminalsGetTheirOwnShortcut_data()
    {
        QTest::addColumn<QByteArray>("windowClass");
        QTest::addColumn<uint>("symbol");
        QTest::addColumn<ushort>("modifiers");
        QTest::addColumn<int>("offers");
        QTest::newRow("konsole") << QByteArray("konsole") << uint(XK_v)
                                 << ushort(controlMask | shiftMask) << 0;
        QTest::newRow("urxvt") << QByteArray("URxvt") << uint(XK_Insert) << ushort(shiftMask) << 1;
    }

    void terminalsGetTheirOwnShortcut()
    {
        QFETCH(QByteArray, windowClass);
        QFETCH(uint, symbol);
        QFETCH(ushort, modifiers);
        QFETCH(int, offers);
        X11Client client({.windowClass = windowClass});
        QTRY_VERIFY(client.hasFocus());
        keystroke->send(applicationOf(client));
        QTRY_COMPARE(strokes(client).size(), std::size_t(1));
        QVERIFY(strokes(client).front() == (Stroke{user.keycodeOf(symbol), modifiers, 0}));
        QCOMPARE(primary.offers, offers);
    }

    void heldModifiersDoNotInterfere()
    {
        X11Client client;
        QTRY_VERIFY(client.hasFocus());
        for (const xcb_keysym_t key : {XK_Shift_L, XK_Control_R, XK_Alt_L})
            user.press(key);
        client.forgetKeys();
        keystroke->send(applicationOf(client));
        QTRY_COMPARE(strokes(client).size(), std::size_t(1));
        QCOMPARE(strokes(client).front().modifiers, controlMask);
        // They stay up until they are pressed anew: a release that is still to come does no harm.
        QTRY_COMPARE(user.modifiers(), std::uint16_t(0));
        for (const xcb_keysym_t key : {XK_Shift_L, XK_Control_R, XK_Alt_L})
            user.release(key);
        QCOMPARE(user.modifiers(), std::uint16_t(0));
    }

    void heldShortcutKeyIsPressedAgain()
    {
        X11Client client;
        QTRY_VERIFY(client.hasFocus());
        user.press(XK_Control_L);
        user.press(XK_v);
        client.forgetKeys();
        keystroke->send(applicationOf(client));
        QTRY_COMPARE(strokes(client).size(), std::size_t(1));
        QVERIFY(strokes(client).front() == (Stroke{user.keycodeOf(XK_v), controlMask, 0}));
        QTRY_VERIFY(!user.isDown(XK_v));
    }

    void locksDoNotInterfereAndStayOn()
    {
        X11Client client;
        QTRY_VERIFY(client.hasFocus());
        user.tap(XK_Caps_Lock);
        user.tap(XK_Num_Lock);
        const auto locked = user.modifiers();
        QVERIFY((locked & XCB_MOD_MASK_LOCK) != 0);
        const auto numLock = static_cast<std::uint16_t>(locked & ~XCB_MOD_MASK_LOCK);
        QVERIFY(numLock != 0);
        client.forgetKeys();
        keystroke->send(applicationOf(client));
        QTRY_COMPARE(strokes(client).size(), std::size_t(1));
        // Num Lock changes no shortcut and its light need not flicker.
        QCOMPARE(strokes(client).front().modifiers, std::uint16_t(controlMask | numLock));
        QTRY_COMPARE(user.modifiers(), locked);
        user.tap(XK_Caps_Lock);
        user.tap(XK_Num_Lock);
        QCOMPARE(user.modifiers(), std::uint16_t(0));
    }

    void latchedModifiersDoNotInterfere()
    {
        X11Client client;
        QTRY_VERIFY(client.hasFocus());
        latchShift(client.xcb());
        QTRY_COMPARE(user.modifiers(), shiftMask);
        keystroke->send(applicationOf(client));
        QTRY_COMPARE(strokes(client).size(), std::size_t(1));
        QCOMPARE(strokes(client).front().modifiers, controlMask);
    }

    void layoutWithAVIsUsedAndTheUsersRestored()
    {
        const KeyboardLayout layout({u"-layout"_s, u"us,ru"_s});
        makeKeystroke();
        X11Client client;
        QTRY_VERIFY(client.hasFocus());
        lockGroup(client.xcb(), 1);
        keystroke->send(applicationOf(client));
        QTRY_COMPARE(strokes(client).size(), std::size_t(1));
        QVERIFY(strokes(client).front() == (Stroke{55, controlMask, 0}));
        QTRY_COMPARE(lockedGroup(client.xcb()), 1);
        lockGroup(client.xcb(), 0);
    }

    void keycodeFollowsTheLayout()
    {
        const KeyboardLayout layout({u"-layout"_s, u"us"_s, u"-variant"_s, u"dvorak"_s});
        makeKeystroke();
        X11Client client;
        QTRY_VERIFY(client.hasFocus());
        keystroke->send(applicationOf(client));
        QTRY_COMPARE(strokes(client).size(), std::size_t(1));
        QVERIFY(strokes(client).front() == (Stroke{60, controlMask, 0}));
    }

    void usualKeyOfVIsUsedWithoutLatinLetters()
    {
        const KeyboardLayout layout({u"-layout"_s, u"ru"_s});
        makeKeystroke();
        X11Client client;
        QTRY_VERIFY(client.hasFocus());
        keystroke->send(applicationOf(client));
        QTRY_COMPARE(strokes(client).size(), std::size_t(1));
        QVERIFY(strokes(client).front() == (Stroke{55, controlMask, 0}));
    }

    void waitsForTheKeyboardFocus()
    {
        X11Client target;
        QTRY_VERIFY(target.hasFocus());
        X11Client other;
        QTRY_VERIFY(other.hasFocus());
        const auto application = applicationOf(target);
        keystroke->send(application);
        QTimer::singleShot(30, this, [&] { application->activate(); });
        QTRY_COMPARE(strokes(target).size(), std::size_t(1));
        QVERIFY(other.keys().empty());
    }

    void nothingIsTypedIfTheTargetNeverGetsTheFocus()
    {
        X11Client target;
        QTRY_VERIFY(target.hasFocus());
        X11Client other;
        QTRY_VERIFY(other.hasFocus());
        const AwaitedLine refusal(
            u"Paste keystroke not sent: the target did not get the keyboard"_s);
        keystroke->send(applicationOf(target));
        QTRY_COMPARE(refusal.count(), 1);
        QVERIFY(target.keys().empty());
        user.tap(XK_a); // whatever was typed before would arrive before it
        QTRY_COMPARE(other.keys().size(), std::size_t(2));
    }

    void nothingIsTypedIfTheTargetQuits()
    {
        X11Client target;
        QTRY_VERIFY(target.hasFocus());
        X11Client other;
        QTRY_VERIFY(other.hasFocus());
        const auto application = applicationOf(target);
        const AwaitedLine refusal(u"Paste keystroke not sent: the target has gone"_s);
        keystroke->send(application);
        target.quit();
        QTRY_COMPARE(refusal.count(), 1);
        user.tap(XK_a); // whatever was typed before would arrive before it
        QTRY_COMPARE(other.keys().size(), std::size_t(2));
    }

    void eventLoopRunsWhileTheServerDoesNotAnswer_data()
    {
        QTest::addColumn<bool>("isFocusKnown");
        QTest::newRow("asked who has the focus") << false;
        QTest::newRow("asked which keys are down") << true;
    }

    void eventLoopRunsWhileTheServerDoesNotAnswer()
    {
        QFETCH(bool, isFocusKnown);
        X11Client client;
        QTRY_VERIFY(client.hasFocus());
        std::shared_ptr<RunningApplication> target = applicationOf(client);
        if (isFocusKnown)
            target = std::make_shared<FakeRunningApplication>();

        ServerGrab grab;
        keystroke->send(target);
        int turns = 0;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&turns] { ++turns; });
        timer.start(1);
        QTRY_VERIFY(turns > 50);
        QVERIFY(grab.letGo());
        QTRY_COMPARE(strokes(client).size(), std::size_t(1));
    }

    void laterKeystrokeReplacesAWaitingOne()
    {
        X11Client first;
        QTRY_VERIFY(first.hasFocus());
        X11Client second;
        QTRY_VERIFY(second.hasFocus());
        const auto firstApplication = applicationOf(first);
        keystroke->send(firstApplication);
        keystroke->send(applicationOf(second));
        QTRY_COMPARE(strokes(second).size(), std::size_t(1));
        firstApplication->activate();
        QTRY_VERIFY(first.hasFocus());
        QTest::qWait(100); // the time in which nothing must be typed
        QVERIFY(first.keys().empty());
    }

    void focusedChildWindowCountsAsTheTarget()
    {
        X11Client client;
        QTRY_VERIFY(client.hasFocus());
        const xcb_window_t child = xcb_generate_id(client.xcb());
        const std::uint32_t events = XCB_EVENT_MASK_KEY_PRESS;
        xcb_create_window(client.xcb(), XCB_COPY_FROM_PARENT, child, client.window(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                          &events);
        xcb_map_window(client.xcb(), child);
        xcb_set_input_focus(client.xcb(), XCB_INPUT_FOCUS_PARENT, child, XCB_CURRENT_TIME);
        QTRY_VERIFY(client.hasFocus());
        keystroke->send(applicationOf(client));
        QTRY_COMPARE(strokes(client).size(), std::size_t(1));
    }

    void realTerminalPastes()
    {
        const QTemporaryDir folder;
        const QString written = folder.filePath(u"written"_s);
        QProcess::execute(u"sh"_s,
                          {u"-c"_s, u"printf 'from primary' | xclip -selection primary"_s});
        QProcess terminal;
        terminal.start(u"xterm"_s,
                       {u"-e"_s, u"sh"_s, u"-c"_s,
                        u"stty raw; touch '%1'; dd bs=1 count=12 of='%1'"_s.arg(written)});
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(written), 10'000);
        std::shared_ptr<X11RunningApplication> application;
        QTRY_VERIFY((application = focusedApplication()) != nullptr &&
                    application->bundleIdentifier() == u"XTerm"_s);
        keystroke->send(application);
        QTRY_COMPARE(terminal.state(), QProcess::NotRunning);
        QFile file(written);
        QVERIFY(file.open(QFile::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("from primary"));
    }

private:
    void makeKeystroke()
    {
        keystroke.reset();
        keyboard = std::make_unique<X11Keyboard>(*connection);
        keystroke = std::make_unique<X11PasteKeystroke>(*connection, *keyboard, primary);
    }

    [[nodiscard]] std::shared_ptr<X11RunningApplication> applicationOf(const X11Client& client)
    {
        return std::make_shared<X11RunningApplication>(*connection, client.window());
    }

    [[nodiscard]] std::shared_ptr<X11RunningApplication> focusedApplication()
    {
        auto* focus = xcb_get_input_focus_reply(connection->xcb(),
                                                xcb_get_input_focus(connection->xcb()), nullptr);
        const xcb_window_t window = focus->focus;
        std::free(focus);
        return std::make_shared<X11RunningApplication>(*connection, window);
    }

    [[nodiscard]] std::vector<Stroke> strokes(X11Client& client) const
    {
        std::vector<Stroke> list;
        for (const auto& key : client.keys()) {
            if (key.isPress && !keyboard->isModifier(key.code))
                list.push_back({key.code, key.modifiers, key.group});
        }
        return list;
    }

    static void useXkb(xcb_connection_t* xcb)
    {
        free(xcb_xkb_use_extension_reply(xcb, xcb_xkb_use_extension(xcb, 1, 0), nullptr));
    }
    static void lockGroup(xcb_connection_t* xcb, std::uint8_t group)
    {
        useXkb(xcb);
        xcb_xkb_latch_lock_state(xcb, XCB_XKB_ID_USE_CORE_KBD, 0, 0, 1, group, 0, 0, 0);
        QCOMPARE(lockedGroup(xcb), int(group));
    }
    static int lockedGroup(xcb_connection_t* xcb)
    {
        auto* state =
            xcb_xkb_get_state_reply(xcb, xcb_xkb_get_state(xcb, XCB_XKB_ID_USE_CORE_KBD), nullptr);
        const int group = state->lockedGroup;
        free(state);
        return group;
    }
    static void latchShift(xcb_connection_t* xcb)
    {
        useXkb(xcb);
        // The library's call lacks the argument for the latches.
        struct
        {
            std::uint8_t majorOpcode = 0;
            std::uint8_t minorOpcode = XCB_XKB_LATCH_LOCK_STATE;
            std::uint16_t length = 4;
            std::uint16_t device = XCB_XKB_ID_USE_CORE_KBD;
            std::uint8_t locks[4] = {};
            std::uint8_t affectedLatches = XCB_MOD_MASK_SHIFT;
            std::uint8_t latches = XCB_MOD_MASK_SHIFT;
            std::uint8_t rest[4] = {};
        } request;
        static_assert(sizeof(request) == 16);
        iovec parts[3] = {};
        parts[2] = {&request, sizeof(request)};
        const xcb_protocol_request_t protocol = {1, &xcb_xkb_id, XCB_XKB_LATCH_LOCK_STATE, 1};
        xcb_send_request(xcb, 0, parts + 2, &protocol);
        xcb_flush(xcb);
    }

    X11User user;
    CountingPrimarySelection primary;
    std::unique_ptr<X11Connection> connection;
    std::unique_ptr<X11Keyboard> keyboard;
    std::unique_ptr<X11PasteKeystroke> keystroke;
};

DRIFTBOX_DISPLAY_TEST(TestX11PasteKeystroke)
#include "TestX11PasteKeystroke.moc"
