#include "support/OtherProgram.h"
#include "support/SessionBus.h"
#include "support/VirtualDesktop.h"
#include "support/main/TestMain.h"
#include "unit/platform/desktop/caret/CaretSession.h"
#include "unit/platform/desktop/caret/SlowEditor.h"

#include <array>
#include <cmath>
#include <csignal>

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtDBus/QDBusArgument>
#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

constexpr int lookupTimeoutMs = 20'000;

QRectF scaled(const QRectF& rectangle, qreal factor)
{
    return {rectangle.topLeft() * factor, rectangle.size() * factor};
}

bool isNear(const std::optional<QRectF>& found, const QRectF& expected, qreal tolerance)
{
    return found && std::abs(found->x() - expected.x()) <= tolerance &&
           std::abs(found->y() - expected.y()) <= tolerance &&
           std::abs(found->height() - expected.height()) <= tolerance;
}

int leftOfActiveWindow()
{
    QProcess xdotool;
    xdotool.start(u"xdotool"_s, {u"getactivewindow"_s, u"getwindowgeometry"_s, u"--shell"_s});
    xdotool.waitForFinished(lookupTimeoutMs);
    const QString output = QString::fromUtf8(xdotool.readAllStandardOutput());
    return QRegularExpression(u"X=(\\d+)"_s).match(output).captured(1).toInt();
}

QByteArray text(const std::optional<QRectF>& rectangle)
{
    const QRectF r = rectangle.value_or(QRectF());
    return QByteArray::number(r.x()) + ' ' + QByteArray::number(r.y()) + ' ' +
           QByteArray::number(r.width()) + 'x' + QByteArray::number(r.height());
}

} // namespace

// Asks until the caret is where it is expected.
#define QTRY_CARET_NEAR(session, expected, tolerance)                                              \
    do {                                                                                           \
        const QRectF place = expected;                                                             \
        const bool reached = QTest::qWaitFor(                                                      \
            [&] { return isNear((session).caret(), place, tolerance); }, lookupTimeoutMs);         \
        QVERIFY2(reached,                                                                          \
                 ("found " + text((session).caret()) + ", expected " + text(place)).constData());  \
    } while (false)

class TestAtSpiCaretLookup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_bus = std::make_unique<SessionBus>();
        m_session = std::make_unique<CaretSession>(m_bus->address());
        QTRY_VERIFY(m_session->isAccessibilityOn());
    }
    void cleanup()
    {
        m_session.reset();
        m_bus.reset();
    }

    void caretIsFoundAtItsPosition_data()
    {
        QTest::addColumn<QStringList>("program");
        QTest::newRow("Qt 6") << OtherProgram::qtEditor();
        QTest::newRow("GTK 3") << OtherProgram::gtkEditor();
    }
    void caretIsFoundAtItsPosition()
    {
        QFETCH(const QStringList, program);
        constexpr qreal exact = 5;   // Qt forgets the margin above the text
        constexpr qreal guessed = 8; // for toolkits that report nothing about empty texts
        OtherProgram editor(program);

        QTRY_CARET_NEAR(*m_session, editor.caretAt(0, 0), guessed);
        typeText(u"first"_s);
        QTRY_CARET_NEAR(*m_session, editor.caretAt(5, 5), exact);
        pressKeys({u"Return"_s});
        QTRY_CARET_NEAR(*m_session, editor.caretAt(6, 6), exact);
        pressKeys({u"Return"_s});
        QTRY_CARET_NEAR(*m_session, editor.caretAt(7, 7), exact);
        typeText(u"third"_s);
        QTRY_CARET_NEAR(*m_session, editor.caretAt(12, 12), exact);
        pressKeys({u"Up"_s});
        QTRY_CARET_NEAR(*m_session, editor.caretAt(6, 12), exact);
        pressKeys({u"Up"_s});
        pressKeys({u"Home"_s});
        QTRY_CARET_NEAR(*m_session, editor.caretAt(0, 12), exact);
        pressKeys({u"Right"_s});
        pressKeys({u"Right"_s});
        QTRY_CARET_NEAR(*m_session, editor.caretAt(2, 12), exact);

        pressKeys({u"Tab"_s});
        QTRY_CARET_NEAR(*m_session, editor.caretAt(0, 0), guessed);
        typeText(u"entry"_s);
        QTRY_CARET_NEAR(*m_session, editor.caretAt(5, 5), exact);
        pressKeys({u"Left"_s});
        QTRY_CARET_NEAR(*m_session, editor.caretAt(4, 5), exact);

        pressKeys({u"Tab"_s});
        QTRY_COMPARE(m_session->caret(), std::nullopt); // a button
        pressKeys({u"shift+Tab"_s});
        QTRY_VERIFY(m_session->caret().has_value());
    }

    void selectionRectangleIsReturned_data() { caretIsFoundAtItsPosition_data(); }
    void selectionRectangleIsReturned()
    {
        QFETCH(const QStringList, program);
        OtherProgram editor(program);
        QTRY_VERIFY(m_session->caret().has_value());
        typeText(u"some words"_s);
        const QRectF end = editor.caretAt(10, 10);
        pressKeys({u"Home"_s});
        const QRectF start = editor.caretAt(0, 10);
        pressKeys({u"shift+End"_s});

        const QRectF selected(start.topLeft(), QSizeF(end.x() - start.x(), start.height()));
        QTRY_CARET_NEAR(*m_session, selected, 5);
        QVERIFY(std::abs(m_session->caret()->width() - selected.width()) <= 2);
    }

    void largeSelectionIsClippedToItsVisiblePart_data() { caretIsFoundAtItsPosition_data(); }
    void largeSelectionIsClippedToItsVisiblePart()
    {
        QFETCH(const QStringList, program);
        OtherProgram editor(program);
        QTRY_VERIFY(m_session->caret().has_value());
        pressKeys(QStringList(40, u"Return"_s));
        QVERIFY(!editor.caretAt(40, 40).isNull());
        pressKeys({u"ctrl+a"_s});
        const auto isCut = [this] {
            const auto rectangle = m_session->caret();
            return rectangle && rectangle->height() > 40 && rectangle->height() < 200;
        };
        QTRY_VERIFY(isCut());
    }

    void commonEditorsAnswer_data()
    {
        QTest::addColumn<QStringList>("program");
        QTest::newRow("Mousepad, GTK 3") << QStringList{u"mousepad"_s};
        QTest::newRow("FeatherPad, Qt 5") << QStringList{u"featherpad"_s, u"--standalone"_s};
    }
    void commonEditorsAnswer()
    {
        QFETCH(const QStringList, program);
        const OtherProgram editor(program);
        QTRY_VERIFY_WITH_TIMEOUT(m_session->caret().has_value(), lookupTimeoutMs);
        const QRectF empty = *m_session->caret();

        typeText(u"several words"_s);
        QTRY_VERIFY(m_session->caret()->x() > empty.x() + 40);
        const QRectF end = *m_session->caret();
        QVERIFY(end.height() > 10 && end.height() < 30);

        pressKeys({u"Return"_s});
        QTRY_VERIFY(std::abs(m_session->caret()->y() - end.bottom()) <= 1);
        QVERIFY(std::abs(m_session->caret()->x() - empty.x()) <= 8);
    }

    void scaledProgramIsConvertedToPoints_data()
    {
        QTest::addColumn<QStringList>("program");
        QTest::addColumn<QString>("variable");
        QTest::addColumn<qreal>("theirs");
        QTest::addColumn<qreal>("ours");
        QTest::newRow("Qt 2, desktop 1")
            << OtherProgram::qtEditor() << u"QT_SCALE_FACTOR"_s << 2.0 << 1.0;
        QTest::newRow("Qt 2, desktop 2")
            << OtherProgram::qtEditor() << u"QT_SCALE_FACTOR"_s << 2.0 << 2.0;
        QTest::newRow("Qt 1, desktop 2")
            << OtherProgram::qtEditor() << u"QT_SCALE_FACTOR"_s << 1.0 << 2.0;
        QTest::newRow("Qt 1.5, desktop 1")
            << OtherProgram::qtEditor() << u"QT_SCALE_FACTOR"_s << 1.5 << 1.0;
        QTest::newRow("GTK 2, desktop 1")
            << OtherProgram::gtkEditor() << u"GDK_SCALE"_s << 2.0 << 1.0;
        QTest::newRow("GTK 2, desktop 2")
            << OtherProgram::gtkEditor() << u"GDK_SCALE"_s << 2.0 << 2.0;
        QTest::newRow("GTK 1, desktop 1.5")
            << OtherProgram::gtkEditor() << u"GDK_SCALE"_s << 1.0 << 1.5;
    }
    void scaledProgramIsConvertedToPoints()
    {
        QFETCH(const QStringList, program);
        QFETCH(const QString, variable);
        QFETCH(const qreal, theirs);
        QFETCH(const qreal, ours);
        const QRectF frame(0, 0, 1440 / ours, 900 / ours);
        m_session->screens.list = {{frame, frame, QRect(0, 0, 1440, 900), ours}};
        OtherProgram editor(program, {{variable, QString::number(theirs)}});

        QTRY_VERIFY(m_session->caret().has_value());
        typeText(u"text"_s);
        QTRY_CARET_NEAR(*m_session, scaled(editor.caretAt(4, 4), theirs / ours), 10);
    }

    void slowProgramIsAskedAgain()
    {
        SlowEditor editor(m_session->accessibilityAddress());
        QTRY_VERIFY_WITH_TIMEOUT(isNear(m_session->caret(), SlowEditor::place, 0), lookupTimeoutMs);
        editor.forgetPlaces(3);
        QVERIFY(isNear(m_session->caret(), SlowEditor::place, 0));
        editor.forgetPlaces(1000);
        QCOMPARE(m_session->caret(), std::nullopt);
    }

    void firstRequestToAProgramMayTakeLonger()
    {
        SlowEditor editor(m_session->accessibilityAddress());
        const auto isFound = [&] {
            editor.forgetCaret(3); // the search asks, too
            editor.forgetPlaces(1);
            return isNear(m_session->caret(), SlowEditor::place, 0);
        };
        QTRY_VERIFY_WITH_TIMEOUT(isFound(), lookupTimeoutMs);
    }

    void caretInTheNextParagraphIsFound()
    {
        SlowEditor editor(m_session->accessibilityAddress());
        QTRY_VERIFY_WITH_TIMEOUT(isNear(m_session->caret(), SlowEditor::place, 0), lookupTimeoutMs);
        editor.setWindowActive(false); // no search from above finds it
        editor.focusNextParagraph();
        QVERIFY(isNear(m_session->caret(), SlowEditor::place, 0));
    }

    void spreadsheetCellsAreNotEnumerated()
    {
        SlowEditor editor(m_session->accessibilityAddress());
        editor.setChildCount(1'000'000);
        const auto wasAsked = [&] { return !m_session->caret() && editor.stateQuestions() > 0; };
        QTRY_VERIFY_WITH_TIMEOUT(wasAsked(), lookupTimeoutMs);
        QCOMPARE(editor.childrenQuestions(), 0);
    }

    void inaccessibleWindowHasNoCaret_data() { caretIsFoundAtItsPosition_data(); }
    void inaccessibleWindowHasNoCaret()
    {
        QFETCH(const QStringList, program);
        const OtherProgram editor(program);
        QTRY_VERIFY(m_session->caret().has_value());
        {
            const OtherProgram terminal({u"xterm"_s});
            QTRY_COMPARE(m_session->caret(), std::nullopt);
        }
        QTRY_VERIFY(m_session->caret().has_value());
    }

    void frozenProgramTimesOutWithoutBlocking_data() { caretIsFoundAtItsPosition_data(); }
    void frozenProgramTimesOutWithoutBlocking()
    {
        QFETCH(const QStringList, program);
        const OtherProgram editor(program);
        QTRY_VERIFY(m_session->caret().has_value());
        editor.signal(SIGSTOP);

        int ticks = 0;
        qint64 longestStall = 0; // of this machine, by itself
        QElapsedTimer sinceTick;
        QTimer ticking;
        connect(&ticking, &QTimer::timeout, this, [&] {
            ++ticks;
            longestStall = std::max(longestStall, sinceTick.restart());
        });
        ticking.start(5);
        sinceTick.start();
        QElapsedTimer elapsed;
        elapsed.start();
        const auto rectangle = m_session->caret();
        const qint64 waited = elapsed.elapsed();
        ticking.stop();
        QCOMPARE(rectangle, std::nullopt);
        QVERIFY2(waited >= 100 && waited <= 150 + longestStall,
                 QByteArray::number(waited).constData());
        QVERIFY2(ticks >= 10, QByteArray::number(ticks).constData());

        editor.signal(SIGCONT);
        QTRY_VERIFY(m_session->caret().has_value());
    }

    void programStartedEarlierIsFound_data()
    {
        QTest::addColumn<QStringList>("program");
        QTest::newRow("Qt 6") << OtherProgram::qtEditor();
        QTest::newRow("GTK 3") << OtherProgram::gtkEditor();
        QTest::newRow("Mousepad, GTK 3") << QStringList{u"mousepad"_s};
        QTest::newRow("FeatherPad, Qt 5") << QStringList{u"featherpad"_s, u"--standalone"_s};
    }
    void programStartedEarlierIsFound()
    {
        QFETCH(const QStringList, program);
        const OtherProgram editor(program);
        QTRY_VERIFY(m_session->caret().has_value());
        typeText(u"several words"_s);

        m_session.reset();
        m_session = std::make_unique<CaretSession>(m_bus->address());
        const auto isBehindTheWords = [this] {
            const auto first = m_session->caret();
            return first && first->x() > leftOfActiveWindow() + 40;
        };
        QTRY_VERIFY(isBehindTheWords());
    }

    void endedProgramHasNoCaret()
    {
        {
            const OtherProgram editor(OtherProgram::qtEditor());
            QTRY_VERIFY(m_session->caret().has_value());
        }
        QElapsedTimer elapsed;
        elapsed.start();
        QCOMPARE(m_session->caret(), std::nullopt);
        QVERIFY(elapsed.elapsed() < 100);
    }

    // Qt applications would send every key over the bus, and lose or repeat shortcuts.
    void noEventListenerIsRegistered()
    {
        const OtherProgram editor(OtherProgram::qtEditor());
        QTRY_VERIFY(m_session->caret().has_value());
        const auto bus = QDBusConnection::connectToBus(m_session->accessibilityAddress(),
                                                       u"registered events"_s);
        const QDBusMessage answer = bus.call(QDBusMessage::createMethodCall(
            u"org.a11y.atspi.Registry"_s, u"/org/a11y/atspi/registry"_s,
            u"org.a11y.atspi.Registry"_s, u"GetRegisteredEvents"_s));
        QCOMPARE(answer.signature(), u"a(ss)"_s);
        const auto listeners = answer.arguments().first().value<QDBusArgument>();
        listeners.beginArray();
        QVERIFY(listeners.atEnd());
        QDBusConnection::disconnectFromBus(bus.name());
    }

    void destroyedOwnerIsNotCalled()
    {
        const OtherProgram editor(OtherProgram::qtEditor());
        QTRY_VERIFY(m_session->caret().has_value());
        bool called = false;
        auto owner = std::make_unique<QObject>();
        m_session->ask(owner.get(), [&called](const auto&) { called = true; });
        owner.reset();
        QVERIFY(m_session->caret().has_value());
        QVERIFY(!called);
    }

    void everyRequestIsAnsweredOnce()
    {
        const OtherProgram editor(OtherProgram::qtEditor());
        QTRY_VERIFY(m_session->caret().has_value());
        QObject owner;
        std::array<int, 5> answers{};
        for (int& count : answers)
            m_session->ask(&owner, [&count](const auto&) { ++count; });
        QTest::qWait(200); // beyond the deadline, which must not answer again
        QCOMPARE(answers, (std::array{1, 1, 1, 1, 1}));
    }

    void restartedAccessibilityServiceIsFoundAgain()
    {
        {
            const OtherProgram editor(OtherProgram::qtEditor());
            QTRY_VERIFY(m_session->caret().has_value());
        }
        const pid_t launcher = m_session->launcher();
        QVERIFY(launcher > 0);
        ::kill(launcher, SIGTERM);
        const auto isReplaced = [this, launcher] {
            return !m_session->caret() && m_session->launcher() > 0 &&
                   m_session->launcher() != launcher && m_session->isAccessibilityOn();
        };
        QTRY_VERIFY(isReplaced());
        const OtherProgram editor(OtherProgram::qtEditor());
        QTRY_VERIFY_WITH_TIMEOUT(m_session->caret().has_value(), lookupTimeoutMs);
    }

private:
    std::unique_ptr<SessionBus> m_bus;
    std::unique_ptr<CaretSession> m_session;
};

static int runTestAtSpiCaretLookup(int argc, char** argv)
{
    const VirtualDesktop desktop;
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QGuiApplication application(argc, argv);
    TestAtSpiCaretLookup test;
    return QTest::qExec(&test, argc, argv);
}
DRIFTBOX_TEST_MAIN(TestAtSpiCaretLookup, runTestAtSpiCaretLookup)

#include "TestAtSpiCaretLookup.moc"
