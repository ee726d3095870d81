#include "platform/desktop/QtLocalKeyMonitor.h"
#include "support/main/TestMain.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QShortcut>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

/// A window with a text field that has the keyboard.
class FieldWindow
{
public:
    FieldWindow()
    {
        field.setParent(&window);
        window.show();
        window.activateWindow();
        field.setFocus();
    }
    [[nodiscard]] bool isReady() { return QTest::qWaitForWindowActive(&window); }
    void type(const QByteArray& letters) const
    {
        for (const char letter : letters)
            QTest::keyClick(window.windowHandle(), letter);
    }

    QWidget window;
    QLineEdit field;
};

/// Holds presses back and posts copies of them later, as the toolkit does while assistive
/// technology listens.
class PressDelay final : public QObject
{
public:
    PressDelay() { qApp->installEventFilter(this); }
    [[nodiscard]] bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress || !event->spontaneous())
            return false;
        const auto& press = static_cast<const QKeyEvent&>(*event);
        QCoreApplication::postEvent(
            receiver, new QKeyEvent(press.type(), press.key(), press.modifiers(), press.text()));
        return true;
    }
};

} // namespace

class TestQtLocalKeyMonitor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyPressIsSeenOnceAndReachesItsWidget()
    {
        QtLocalKeyMonitor monitor;
        std::vector<Qt::Key> seen;
        const auto token = monitor.addMonitor(
            [&](const KeyPress& press) { return seen.push_back(press.key), false; });
        FieldWindow fixture;
        QVERIFY(fixture.isReady());

        fixture.type("aab");

        QCOMPARE(seen, (std::vector{Qt::Key_A, Qt::Key_A, Qt::Key_B}));
        QCOMPARE(fixture.field.text(), u"aab"_s);
    }

    void consumedPressReachesNoWidget()
    {
        QtLocalKeyMonitor monitor;
        const auto token =
            monitor.addMonitor([](const KeyPress& press) { return press.key == Qt::Key_A; });
        FieldWindow fixture;
        QVERIFY(fixture.isReady());

        fixture.type("aba");
        QCOMPARE(fixture.field.text(), u"b"_s);
    }

    void consumedPressTriggersNoShortcut()
    {
        QtLocalKeyMonitor monitor;
        int presses = 0;
        auto token = monitor.addMonitor([&](const KeyPress& press) {
            presses += press.key == Qt::Key_W;
            return press.key == Qt::Key_W && press.modifiers == Qt::ControlModifier;
        });
        FieldWindow fixture;
        int closed = 0;
        const QShortcut shortcut(QKeySequence(u"Ctrl+W"_s), &fixture.window, [&] { ++closed; });
        QVERIFY(fixture.isReady());

        QTest::keyClick(fixture.window.windowHandle(), Qt::Key_W, Qt::ControlModifier);
        QCOMPARE(closed, 0);
        QCOMPARE(presses, 1);

        token.reset();
        QTest::keyClick(fixture.window.windowHandle(), Qt::Key_W, Qt::ControlModifier);
        QCOMPARE(closed, 1);
    }

    void monitorSeesRepeatsOfHeldKeys()
    {
        QtLocalKeyMonitor monitor;
        int presses = 0;
        const auto token = monitor.addMonitor([&](const KeyPress&) { return ++presses, false; });
        FieldWindow fixture;
        QVERIFY(fixture.isReady());

        for (int i = 0; i < 3; ++i)
            QTest::keyPress(fixture.window.windowHandle(), Qt::Key_X);
        QTest::keyRelease(fixture.window.windowHandle(), Qt::Key_X);
        QCOMPARE(presses, 3);
        QCOMPARE(fixture.field.text(), u"xxx"_s);
    }

    void repeatedPressesAreMarked()
    {
        QtLocalKeyMonitor monitor;
        std::vector<bool> repeated;
        const auto token = monitor.addMonitor(
            [&](const KeyPress& press) { return repeated.push_back(press.isRepeated), false; });
        FieldWindow fixture;
        QVERIFY(fixture.isReady());

        const auto send = [&fixture](QEvent::Type type, quint64 time, bool isAutoRepeat = false) {
            QKeyEvent event(type, Qt::Key_X, Qt::NoModifier, u"x"_s, isAutoRepeat);
            event.setTimestamp(time);
            QCoreApplication::sendEvent(fixture.window.windowHandle(), &event);
        };
        send(QEvent::ShortcutOverride, 1000);
        send(QEvent::KeyRelease, 1500, true);
        send(QEvent::ShortcutOverride, 1500, true);
        send(QEvent::ShortcutOverride, 1540); // the release went elsewhere
        send(QEvent::KeyRelease, 1580);       // the toolkit has not seen that it goes on
        send(QEvent::ShortcutOverride, 1580);
        QCOMPARE(repeated, (std::vector{false, true, true, true}));

        repeated.clear();
        send(QEvent::KeyRelease, 1600);
        send(QEvent::ShortcutOverride, 1620);
        send(QEvent::ShortcutOverride, 1820); // its release was missed
        QCOMPARE(repeated, (std::vector{false, false}));
    }

    void delayedPressesAreSeenOnce()
    {
        QtLocalKeyMonitor monitor;
        std::vector<Qt::Key> seen;
        const auto token = monitor.addMonitor([&](const KeyPress& press) {
            seen.push_back(press.key);
            return press.key == Qt::Key_A;
        });
        const PressDelay delay;
        FieldWindow fixture;
        QVERIFY(fixture.isReady());

        fixture.type("abba");
        QTRY_COMPARE(fixture.field.text(), u"bb"_s);
        QCOMPARE(seen, (std::vector{Qt::Key_A, Qt::Key_B, Qt::Key_B, Qt::Key_A}));
    }

    void handlerMayRunAnEventLoop()
    {
        QtLocalKeyMonitor monitor;
        FieldWindow fixture;
        QVERIFY(fixture.isReady());
        int presses = 0;
        const auto token = monitor.addMonitor([&](const KeyPress& press) {
            ++presses;
            if (press.key == Qt::Key_A)
                QTest::keyClick(fixture.window.windowHandle(), Qt::Key_B);
            return press.key == Qt::Key_A;
        });

        QTest::keyClick(fixture.window.windowHandle(), Qt::Key_A);
        QCOMPARE(presses, 2);
        QCOMPARE(fixture.field.text(), u"b"_s);
    }
};

DRIFTBOX_TEST(TestQtLocalKeyMonitor, QApplication)
#include "TestQtLocalKeyMonitor.moc"
