#include "platform/x11/windows/X11StandardWindows.h"

#include "platform/x11/connection/X11Connection.h"
#include "support/VirtualDesktop.h"
#include "support/main/TestMain.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QRasterWindow>
#include <QtTest/QTest>

using namespace driftbox;

class TestX11StandardWindows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_connection = X11Connection::open();
        QVERIFY(m_connection);
        m_windows = std::make_unique<X11StandardWindows>(*m_connection);
    }

    void windowIsCenteredOnItsScreen()
    {
        QRasterWindow window;
        window.resize(780, 640);
        m_windows->center(window);
        m_windows->present(window);
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(window.size(), QSize(780, 640));
        const QPoint off = window.geometry().center() - screen().center();
        QVERIFY2(off.manhattanLength() < 60, "a title bar may move it");
    }

    void windowThatDoesNotFitIsShrunk()
    {
        QRasterWindow window;
        window.resize(screen().size() * 2);
        m_windows->center(window);
        QCOMPARE(window.geometry(), screen());
    }

    void presentedWindowHasTheKeyboard()
    {
        QRasterWindow one;
        QRasterWindow other;
        for (auto* window : {&one, &other, &one}) {
            window->resize(200, 100);
            m_windows->present(*window);
            QVERIFY(QTest::qWaitForWindowActive(window));
        }
    }

    void presentingRestoresAMinimizedWindow()
    {
        QRasterWindow window;
        window.resize(200, 100);
        m_windows->present(window);
        QVERIFY(QTest::qWaitForWindowActive(&window));
        window.showMinimized();
        QTRY_VERIFY(!window.isExposed());
        m_windows->present(window);
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QVERIFY(!window.windowStates().testFlag(Qt::WindowMinimized));
    }

    void presentedWindowTakesTheKeyboardWithoutAWindowManager()
    {
        m_desktop->setWindowManager({});
        QRasterWindow window;
        window.resize(200, 100);
        m_windows->present(window);
        QTRY_COMPARE(QGuiApplication::focusWindow(), &window);
    }

public:
    VirtualDesktop* m_desktop = nullptr;

private:
    [[nodiscard]] static QRect screen()
    {
        return QGuiApplication::primaryScreen()->availableGeometry();
    }

    std::unique_ptr<X11Connection> m_connection;
    std::unique_ptr<X11StandardWindows> m_windows;
};

static int runTestX11StandardWindows(int argc, char** argv)
{
    VirtualDesktop desktop;
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QGuiApplication application(argc, argv);
    TestX11StandardWindows test;
    test.m_desktop = &desktop;
    return QTest::qExec(&test, argc, argv);
}
DRIFTBOX_TEST_MAIN(TestX11StandardWindows, runTestX11StandardWindows)

#include "TestX11StandardWindows.moc"
