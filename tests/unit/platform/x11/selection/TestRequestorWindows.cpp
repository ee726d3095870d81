#include "fakes/FakeClock.h"
#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/selection/RequestorWindows.h"
#include "support/VirtualDesktop.h"

#include <algorithm>
#include <cstdlib>

#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

using namespace driftbox;
using namespace std::chrono_literals;

class TestRequestorWindows : public QObject
{
    Q_OBJECT

    std::unique_ptr<X11Connection> m_connection;
    FakeClock m_clock;
    std::unique_ptr<RequestorWindows> m_windows;

    [[nodiscard]] bool exists(xcb_window_t window) const
    {
        auto* const xcb = m_connection->xcb();
        auto* const reply = xcb_get_geometry_reply(xcb, xcb_get_geometry(xcb, window), nullptr);
        std::free(reply);
        return reply != nullptr;
    }

private Q_SLOTS:
    void init()
    {
        m_connection = X11Connection::open();
        m_windows = std::make_unique<RequestorWindows>(*m_connection, m_clock);
    }

    void cleanup()
    {
        m_windows.reset();
        m_connection.reset();
    }

    void windowIsReusedUntilRetired()
    {
        const xcb_window_t first = m_windows->current();
        QCOMPARE(m_windows->current(), first);
        m_windows->retireCurrent();
        QVERIFY(m_windows->current() != first);
    }

    void retiredWindowIsKeptForAWhile()
    {
        const xcb_window_t window = m_windows->current();
        m_windows->retireCurrent();
        m_clock.advance(9s);
        QVERIFY(exists(window));
        m_clock.advance(1s);
        QVERIFY(!exists(window));
    }

    void everyRetiredWindowHasItsOwnTimeout()
    {
        const xcb_window_t first = m_windows->current();
        m_windows->retireCurrent();
        m_clock.advance(5s);
        const xcb_window_t second = m_windows->current();
        m_windows->retireCurrent();
        m_clock.advance(5s);
        QVERIFY(!exists(first));
        QVERIFY(exists(second));
    }

    void numberOfRetiredWindowsIsLimited()
    {
        std::vector<xcb_window_t> windows;
        for (int i = 0; i < 100; ++i) {
            windows.push_back(m_windows->current());
            m_windows->retireCurrent();
        }
        QCOMPARE(std::ranges::count_if(windows, [this](auto each) { return exists(each); }), 32);
        QVERIFY(!exists(windows.front()));
        QVERIFY(exists(windows.back()));
        m_clock.advance(10s);
        QCOMPARE(std::ranges::count_if(windows, [this](auto each) { return exists(each); }), 0);
    }

    void destructionLeavesNoWindow()
    {
        const xcb_window_t retired = m_windows->current();
        m_windows->retireCurrent();
        const xcb_window_t current = m_windows->current();
        m_windows.reset();
        QVERIFY(!exists(retired));
        QVERIFY(!exists(current));
        m_clock.advance(10s);
    }

    void retiringWithoutAWindowDoesNothing()
    {
        m_windows->retireCurrent();
        m_windows->retireCurrent();
        QVERIFY(exists(m_windows->current()));
    }
};

DRIFTBOX_DISPLAY_TEST(TestRequestorWindows)
#include "TestRequestorWindows.moc"
