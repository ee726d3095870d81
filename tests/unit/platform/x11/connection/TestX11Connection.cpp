#include "platform/x11/connection/X11Connection.h"
#include "support/VirtualDesktop.h"

#include <algorithm>
#include <optional>

#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <xcb/xfixes.h>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

void changeTitle(X11Connection& connection, xcb_window_t window, const QByteArray& title)
{
    xcb_change_property(connection.xcb(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NAME,
                        XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(title.size()),
                        title.constData());
}

xcb_window_t createWatchedWindow(X11Connection& connection)
{
    const xcb_window_t window = xcb_generate_id(connection.xcb());
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection.xcb(), XCB_COPY_FROM_PARENT, window, connection.root(), 0, 0, 1, 1,
                      0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &events);
    return window;
}

xcb_get_property_cookie_t askForTitle(X11Connection& connection, xcb_window_t window)
{
    return xcb_get_property(connection.xcb(), false, window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 0,
                            100);
}

/// Counts the changes of a window's properties.
class PropertyChanges : public QObject
{
public:
    PropertyChanges(X11Connection& connection, xcb_window_t window)
    {
        connect(&connection, &X11Connection::eventReceived, this,
                [this, window](const xcb_generic_event_t& event) {
                    if (event.response_type != XCB_PROPERTY_NOTIFY)
                        return;
                    if (reinterpret_cast<const xcb_property_notify_event_t&>(event).window ==
                        window)
                        ++count;
                });
    }

    int count = 0;
};

} // namespace

class TestX11Connection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void missingDisplayIsReportedOnce()
    {
        QTest::ignoreMessage(QtWarningMsg, "Cannot connect to the X server");
        QVERIFY(!X11Connection::open(":nowhere"));
    }

    void atomsMatchTheServer()
    {
        const auto connection = X11Connection::open();
        const auto other = X11Connection::open();
        static constexpr const char* names[] = {"CLIPBOARD", "UTF8_STRING", "CLIPBOARD"};
        connection->intern(names);

        QCOMPARE(connection->atom("PRIMARY"), xcb_atom_t(XCB_ATOM_PRIMARY));
        QCOMPARE(connection->atom("CLIPBOARD"), other->atom("CLIPBOARD"));
        QVERIFY(connection->atom("CLIPBOARD") != connection->atom("UTF8_STRING"));
    }

    void extensionsAreFound()
    {
        const auto connection = X11Connection::open();
        QVERIFY(connection->firstEventOf(xcb_xfixes_id).has_value());
    }

    void eventsAndRepliesArriveFromTheEventLoopOnly()
    {
        const auto connection = X11Connection::open();
        const xcb_window_t window = createWatchedWindow(*connection);
        const PropertyChanges changes(*connection, window);
        QByteArray title;

        changeTitle(*connection, window, "one");
        connection->whenReplied<xcb_get_property_reply_t>(
            askForTitle(*connection, window).sequence, this,
            [&](const xcb_get_property_reply_t* reply) {
                title = QByteArray(static_cast<const char*>(xcb_get_property_value(reply)),
                                   xcb_get_property_value_length(reply));
            });
        static_cast<void>(connection->atom("A round trip that reads the event too"));
        QCOMPARE(changes.count, 0);
        QVERIFY(title.isEmpty());

        QTRY_COMPARE(changes.count, 1);
        QTRY_COMPARE(title, "one");
    }

    void eventReadDuringARoundTripIsDelivered()
    {
        const auto connection = X11Connection::open();
        const xcb_window_t window = createWatchedWindow(*connection);
        const PropertyChanges changes(*connection, window);
        changeTitle(*connection, window, "one");
        QTRY_COMPARE(changes.count, 1);

        // The event loop is asleep when the timer fires, and nothing more comes from the server.
        QTimer::singleShot(0, this, [&] {
            changeTitle(*connection, window, "two");
            static_cast<void>(connection->atom("A round trip after the second title"));
        });
        QTRY_COMPARE(changes.count, 2);
    }

    void errorGivesAnEmptyReply()
    {
        const auto connection = X11Connection::open();
        std::optional<bool> hadReply;
        connection->whenReplied<xcb_get_property_reply_t>(
            askForTitle(*connection, 0x7fffffff).sequence, this,
            [&](const xcb_get_property_reply_t* reply) { hadReply = reply != nullptr; });

        QTRY_VERIFY(hadReply.has_value());
        QCOMPARE(*hadReply, false);
    }

    void destroyedOwnerGetsNoReply()
    {
        const auto connection = X11Connection::open();
        auto owner = std::make_unique<QObject>();
        bool toldTheDead = false;
        bool toldTheLiving = false;
        connection->whenReplied<xcb_get_property_reply_t>(
            askForTitle(*connection, connection->root()).sequence, owner.get(),
            [&](const xcb_get_property_reply_t*) { toldTheDead = true; });
        connection->whenServerTimeKnown(owner.get(), [&](xcb_timestamp_t) { toldTheDead = true; });
        connection->whenServerTimeKnown(this, [&](xcb_timestamp_t) { toldTheLiving = true; });
        owner.reset();

        QTRY_VERIFY(toldTheLiving);
        QVERIFY(!toldTheDead);
    }

    void serverTimeAdvances()
    {
        const auto connection = X11Connection::open();
        std::vector<xcb_timestamp_t> times;
        const auto remember = [&](xcb_timestamp_t time) { times.push_back(time); };
        connection->whenServerTimeKnown(this, remember);
        connection->whenServerTimeKnown(this, remember);
        QTRY_COMPARE(times.size(), std::size_t(2));
        QVERIFY(times.front() != XCB_CURRENT_TIME);
        QVERIFY(std::ranges::is_sorted(times));
    }

    void handlerMayDestroyTheConnection()
    {
        auto connection = X11Connection::open();
        connection->whenServerTimeKnown(this, [&](xcb_timestamp_t) { connection.reset(); });
        QTRY_VERIFY(!connection);
    }

    void lastRequestsAreSentBeforeClosing()
    {
        const auto observer = X11Connection::open();
        const xcb_window_t window = createWatchedWindow(*observer);
        const PropertyChanges changes(*observer, window);
        observer->whenServerTimeKnown(this, [&](xcb_timestamp_t) {
            const auto connection = X11Connection::open();
            changeTitle(*connection, window, "last words");
        });
        QTRY_COMPARE(changes.count, 1);
    }

    void lossOfTheServerIsReportedOnce()
    {
        const QByteArray mainDisplay = qgetenv("DISPLAY");
        auto desktop = std::make_unique<VirtualDesktop>();
        const auto connection = X11Connection::open();
        qputenv("DISPLAY", mainDisplay);
        const QSignalSpy closed(connection.get(), &X11Connection::closed);
        QVERIFY(connection->isOpen());

        QTest::ignoreMessage(QtCriticalMsg, "The X server has closed the connection");
        desktop.reset();
        QTRY_COMPARE(closed.count(), 1);
        QVERIFY(!connection->isOpen());

        // Further requests are harmless, and nothing is reported twice.
        connection->whenServerTimeKnown(this, [](xcb_timestamp_t) { QFAIL("There is no server"); });
        changeTitle(*connection, connection->root(), "late");
        connection->flush();
        QCOMPARE(connection->atom("NOBODY_KNOWS"), xcb_atom_t(XCB_ATOM_NONE));
        QCoreApplication::processEvents();
        QCOMPARE(closed.count(), 1);
    }
};

DRIFTBOX_DISPLAY_TEST(TestX11Connection)
#include "TestX11Connection.moc"
