#include "support/main/TestMain.h"
#include "unit/panel/PanelDesktop.h"

#include <optional>

#include <QtTest/QTest>

using namespace driftbox;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {
using Application = FakeRunningApplication;
}

class TestPasteBack : public QObject
{
    Q_OBJECT

    PanelDesktop& desk() { return *m_desktop; }

    std::optional<PanelDesktop> m_desktop;

private Q_SLOTS:
    void init() { m_desktop.emplace(); }
    void cleanup() { m_desktop.reset(); }

    void pastingHidesReactivatesTheTargetAndSendsTheKeystroke()
    {
        desk().showPanel();
        desk().workspace.frontmost = std::make_shared<Application>(1, u"app.driftbox"_s);
        QTest::ignoreMessage(QtInfoMsg,
                             "Paste → org.editor pid 4711; target is frontmost now? false");
        desk().requestPaste();
        QVERIFY(!desk().animator.visible());

        desk().clock.advance(99ms);
        QCOMPARE(desk().editor->activations, 0);
        desk().clock.advance(1ms);
        QCOMPARE(desk().editor->activations, 1);
        desk().clock.advance(70ms);
        QVERIFY(!desk().panel.isVisible());
        desk().clock.advance(29ms);
        QVERIFY(desk().keystroke.targets.empty());
        desk().clock.advance(1ms);
        QVERIFY(desk().onlyTheEditorWasPastedInto());
        QCOMPARE(desk().editor->activations, 1);
    }

    void frontmostTargetIsLogged()
    {
        desk().editor->bundleId.reset();
        desk().showPanel();
        desk().workspace.frontmost = std::make_shared<Application>(4711, u"same process"_s);
        QTest::ignoreMessage(QtInfoMsg, "Paste → ? pid 4711; target is frontmost now? true");
        desk().requestPaste();
    }

    void targetIsNotFrontmostIfNoApplicationIs()
    {
        desk().showPanel();
        desk().workspace.frontmost.reset();
        QTest::ignoreMessage(QtInfoMsg,
                             "Paste → org.editor pid 4711; target is frontmost now? false");
        desk().requestPaste();
    }

    void targetThatIsNotRunningGetsNoPaste_data()
    {
        QTest::addColumn<int>("pid");
        QTest::addColumn<bool>("finishedLaunching");
        QTest::addColumn<bool>("terminated");
        QTest::newRow("no process id") << 0 << true << false;
        QTest::newRow("negative process id") << -1 << true << false;
        QTest::newRow("still launching") << 4711 << false << false;
        QTest::newRow("terminated") << 4711 << true << true;
    }
    void targetThatIsNotRunningGetsNoPaste()
    {
        QFETCH(int, pid);
        QFETCH(bool, finishedLaunching);
        QFETCH(bool, terminated);
        desk().showPanel();
        desk().editor->processId = pid;
        desk().editor->finishedLaunching = finishedLaunching;
        desk().editor->terminated = terminated;

        QTest::ignoreMessage(QtCriticalMsg,
                             "Paste requested but no live frontmost target was captured");
        desk().requestPaste();
        QVERIFY(!desk().animator.visible());
        desk().clock.advance(1s);
        QCOMPARE(desk().editor->activations, 0);
        QVERIFY(desk().keystroke.targets.empty());
    }

    void targetThatQuitsBeforeThePasteGetsNoKeystroke()
    {
        desk().showPanel();
        desk().requestPaste();
        desk().clock.advance(150ms);
        desk().editor->terminated = true;
        desk().clock.advance(1s);
        QVERIFY(desk().keystroke.targets.empty());
    }

    void showingThePanelAgainKeepsTheRequestsTarget()
    {
        desk().showPanel();
        desk().requestPaste();
        desk().panel.setKey(false);
        desk().workspace.frontmost = std::make_shared<Application>(5, u"other"_s);
        desk().controller->show();
        desk().clock.advance(1s);
        QVERIFY(desk().onlyTheEditorWasPastedInto());
    }

    void panelIsNeverItsOwnTarget()
    {
        desk().showPanel();
        desk().workspace.frontmost = std::make_shared<Application>(1, u"app.driftbox"_s);
        QTest::ignoreMessage(QtInfoMsg, "Panel show: captured target org.editor pid 4711");
        desk().controller->show();
        desk().requestPaste();
        desk().clock.advance(1s);
        QVERIFY(desk().onlyTheEditorWasPastedInto());
    }

    void targetIsKeptAfterHiding()
    {
        desk().showPanel();
        desk().controller->hide();
        desk().clock.advance(1s);
        desk().requestPaste();
        desk().clock.advance(1s);
        QVERIFY(desk().onlyTheEditorWasPastedInto());
        QCOMPARE(desk().panel.orderOuts, 1);
    }

    void noTargetBeforeTheFirstShow()
    {
        QTest::ignoreMessage(QtCriticalMsg,
                             "Paste requested but no live frontmost target was captured");
        desk().requestPaste();
    }

    void pendingStepsAreDroppedOnDestruction()
    {
        desk().showPanel();
        desk().requestPaste();
        desk().controller.reset();
        desk().clock.advance(1s);
        QCOMPARE(desk().editor->activations, 0);
        QCOMPARE(desk().panel.orderOuts, 0);
        QVERIFY(!desk().keys.press(Qt::Key_Escape));
    }
};

DRIFTBOX_TEST(TestPasteBack, QGuiApplication)
#include "TestPasteBack.moc"
