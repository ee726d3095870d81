#include "panel/MagicPanelController.h"

#include "core/NotificationCenter.h"
#include "fakes/FakeCaretLookup.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeFloatingSurface.h"
#include "fakes/FakeLocalKeyMonitor.h"
#include "fakes/FakePasteKeystroke.h"
#include "fakes/FakeScreens.h"
#include "fakes/FakeWorkspace.h"
#include "panel/CursorLocator.h"
#include "panel/PanelAnimator.h"

#include <QtGui/QWindow>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

using Application = FakeRunningApplication;

/// The panel on a desktop where the user works in an editor.
struct Desktop
{
    Desktop() { workspace.frontmost = editor; }

    void showPanel()
    {
        controller->show();
        QVERIFY(panel.isVisible());
    }
    void requestPaste() { notifications.post(Notification::magicPanelPaste); }
    [[nodiscard]] bool onlyTheEditorWasPastedInto() const
    {
        return keystroke.targets == std::vector<std::shared_ptr<RunningApplication>>{editor};
    }

    std::shared_ptr<Application> editor = std::make_shared<Application>(4711, u"org.editor"_s);
    FakeWorkspace workspace;
    FakePasteKeystroke keystroke;
    FakeCaretLookup caretLookup;
    FakeScreens screens;
    CursorLocator locator{caretLookup, screens};
    FakeLocalKeyMonitor keys;
    NotificationCenter notifications;
    FakeClock clock;
    QWindow window;
    FakeFloatingSurface panel{window, FloatingSurface::Role::panel};
    PanelAnimator animator;
    std::unique_ptr<MagicPanelController> controller = [this] {
        panel.setFrame(QRectF(0, 0, 552, 648));
        return std::make_unique<MagicPanelController>(
            animator, panel,
            MagicPanelController::Services{workspace, keystroke, locator, screens, keys,
                                           notifications, clock});
    }();
};

} // namespace

class TestMagicPanelController : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_desktop.emplace(); }
    void cleanup() { m_desktop.reset(); }

    // Showing

    void initiallyThePanelIsHidden()
    {
        QVERIFY(!desk().controller->isPanelVisible());
        QVERIFY(!desk().animator.visible());
        QCOMPARE(desk().keys.monitorCount(), 0U);
    }

    void showingTakesTheKeyboardAndBringsTheContentIn()
    {
        QTest::ignoreMessage(QtInfoMsg, "Panel show: captured target org.editor pid 4711");
        QTest::ignoreMessage(QtInfoMsg, "Panel shown");
        desk().controller->show();

        QCOMPARE(desk().panel.presentations, std::vector{FloatingSurface::Keyboard::take});
        QVERIFY(desk().controller->isPanelVisible());
        QVERIFY(desk().animator.visible());
        QCOMPARE(desk().animator.curve(), AnimationCurve(SpringCurve{0.34, 0.7}));
        QCOMPARE(desk().keys.monitorCount(), 1U);
    }

    void atTheCaretThePanelIsWhereTheLocatorSays()
    {
        desk().caretLookup.caret = QRectF(100, 200, 1, 18);
        desk().showPanel();
        QCOMPARE(desk().panel.frame(), QRectF(100, 28, 552, 648));
    }

    void withoutACaretThePanelIsCentredUnderTheMouse()
    {
        desk().screens.list.push_back(
            {QRectF(-1280, 100, 1280, 800), QRectF(-1280, 140, 1280, 760), QRect(), 1.0});
        desk().screens.mouse = {-100, 200};
        desk().showPanel();
        QCOMPARE(desk().panel.frame(), QRectF(-640 - 276, 520 - 324, 552, 648));
    }

    void withoutAFrontmostApplicationNilIsLogged()
    {
        desk().workspace.frontmost.reset();
        QTest::ignoreMessage(QtInfoMsg, "Panel show: captured target nil pid -1");
        desk().showPanel();

        QTest::ignoreMessage(QtCriticalMsg,
                             "Paste requested but no live frontmost target was captured");
        desk().requestPaste();
        QVERIFY(!desk().animator.visible());
        desk().clock.advance(1s);
        QVERIFY(!desk().panel.isVisible());
        QVERIFY(desk().keystroke.targets.empty());
    }

    void aTargetWithoutBundleIdentifierIsLoggedAsNil()
    {
        desk().editor->bundleId.reset();
        QTest::ignoreMessage(QtInfoMsg, "Panel show: captured target nil pid 4711");
        desk().showPanel();
    }

    void contentIsBroughtUpToDateBeforeThePanelIsSeen()
    {
        const QSignalSpy aboutToShow(desk().controller.get(), &MagicPanelController::aboutToShow);
        connect(desk().controller.get(), &MagicPanelController::aboutToShow, this,
                [this] { QVERIFY(!desk().panel.isVisible()); });
        desk().showPanel();
        QCOMPARE(aboutToShow.count(), 1);
    }

    // Waiting for the caret

    void whileTheCaretIsAwaitedThePanelCountsAsVisible()
    {
        desk().caretLookup.answersAtOnce = false;
        desk().controller->show();
        QVERIFY(desk().controller->isPanelVisible());
        QVERIFY(!desk().panel.isVisible());
        QVERIFY(!desk().animator.visible());

        desk().caretLookup.answerAll(QRectF(100, 200, 1, 18));
        QVERIFY(desk().panel.isVisible());
        QCOMPARE(desk().panel.frame().topLeft(), QPointF(100, 28));
    }

    void theTargetIsCapturedBeforeTheCaretIsAwaited()
    {
        desk().caretLookup.answersAtOnce = false;
        desk().controller->show();
        desk().workspace.frontmost = std::make_shared<Application>(5, u"other"_s);
        desk().caretLookup.answerAll(std::nullopt);
        desk().requestPaste();
        desk().clock.advance(1s);
        QVERIFY(desk().onlyTheEditorWasPastedInto());
    }

    void aSecondShowWhileTheCaretIsAwaitedDoesNothing()
    {
        desk().caretLookup.answersAtOnce = false;
        const QSignalSpy aboutToShow(desk().controller.get(), &MagicPanelController::aboutToShow);
        desk().controller->show();
        desk().controller->show();
        QCOMPARE(desk().caretLookup.requests, 1);
        QCOMPARE(aboutToShow.count(), 1);
        desk().caretLookup.answerAll(std::nullopt);
        QCOMPARE(desk().panel.presentations.size(), 1U);
    }

    void hidingWhileTheCaretIsAwaitedCallsTheShowingOff()
    {
        desk().caretLookup.answersAtOnce = false;
        desk().controller->show();
        desk().controller->hide();
        QVERIFY(!desk().controller->isPanelVisible());
        desk().caretLookup.answerAll(std::nullopt);
        QVERIFY(desk().panel.presentations.empty());
        desk().clock.advance(1s);
        QCOMPARE(desk().panel.orderOuts, 0);
    }

    void theAnswerToAShowingThatWasCalledOffIsDropped()
    {
        desk().caretLookup.answersAtOnce = false;
        desk().controller->show();
        desk().controller->hide();
        desk().controller->show();
        QCOMPARE(desk().caretLookup.requests, 2);
        // Both answers arrive, the stale one first.
        desk().caretLookup.answerAll(QRectF(100, 200, 1, 18));
        QCOMPARE(desk().panel.presentations.size(), 1U);
        QCOMPARE(desk().panel.frame().topLeft(), QPointF(100, 28));
    }

    void anAnswerAfterTheControllersEndIsNobodys()
    {
        desk().caretLookup.answersAtOnce = false;
        desk().controller->show();
        desk().controller.reset();
        desk().caretLookup.answerAll(std::nullopt);
        QVERIFY(desk().panel.presentations.empty());
    }

    // Hiding

    void hidingTakesTheContentOutAndThenTheWindow()
    {
        desk().showPanel();
        desk().controller->hide();
        QVERIFY(!desk().animator.visible());
        QCOMPARE(desk().animator.curve(), AnimationCurve(EaseInCurve{0.16}));
        QCOMPARE(desk().keys.monitorCount(), 0U);
        desk().clock.advance(169ms);
        QVERIFY(desk().panel.isVisible());
        QVERIFY(desk().controller->isPanelVisible());
        desk().clock.advance(1ms);
        QVERIFY(!desk().panel.isVisible());
        QVERIFY(!desk().controller->isPanelVisible());
    }

    void hidingAHiddenPanelDoesNothing()
    {
        const QSignalSpy changed(&desk().animator, &PanelAnimator::visibleChanged);
        desk().controller->hide();
        desk().clock.advance(1s);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(desk().panel.orderOuts, 0);
    }

    void twoHidesMakeOneAnimationAndOneOrderOut()
    {
        desk().showPanel();
        const QSignalSpy changed(&desk().animator, &PanelAnimator::visibleChanged);
        desk().controller->hide();
        desk().clock.advance(100ms);
        desk().controller->hide();
        desk().clock.advance(1s);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(desk().panel.orderOuts, 1);
    }

    void afterHidingThePanelCanBeShownAgain()
    {
        desk().showPanel();
        desk().controller->hide();
        desk().clock.advance(170ms);
        desk().showPanel();
        QVERIFY(desk().animator.visible());
        QCOMPARE(desk().keys.monitorCount(), 1U);
        desk().clock.advance(1s);
        QVERIFY(desk().panel.isVisible());
    }

    void escapeHidesAndGoesNoFurther()
    {
        desk().showPanel();
        QVERIFY(!desk().keys.press(Qt::Key_A));
        QVERIFY(!desk().keys.press(Qt::Key_Return));
        QVERIFY(desk().animator.visible());
        QVERIFY(desk().keys.press(Qt::Key_Escape));
        QVERIFY(!desk().animator.visible());
        // From here on it is not the panel's business any more.
        QVERIFY(!desk().keys.press(Qt::Key_Escape));
    }

    void losingTheKeyboardHides()
    {
        desk().showPanel();
        desk().panel.setKey(false);
        QVERIFY(!desk().animator.visible());
        desk().clock.advance(170ms);
        QVERIFY(!desk().panel.isVisible());
        QCOMPARE(desk().panel.orderOuts, 1);
    }

    void showingAShownPanelInstallsNoSecondEscapeMonitorAndNotifiesNobody()
    {
        desk().showPanel();
        const QSignalSpy changed(&desk().animator, &PanelAnimator::visibleChanged);
        desk().controller->show();
        QCOMPARE(desk().keys.monitorCount(), 1U);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(desk().panel.presentations.size(), 2U);
    }

    void showingWhileHidingDoesNotCallTheHideOff()
    {
        desk().showPanel();
        desk().controller->hide();
        desk().clock.advance(100ms);
        desk().controller->show();
        QVERIFY(desk().animator.visible());
        desk().clock.advance(70ms);
        QVERIFY(!desk().panel.isVisible());
        QVERIFY(!desk().animator.visible());
        QCOMPARE(desk().keys.monitorCount(), 0U);

        desk().showPanel();
        QVERIFY(desk().animator.visible());
    }

    // Pasting back

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

    void aTargetThatIsFrontmostIsLoggedAsSuch()
    {
        desk().editor->bundleId.reset();
        desk().showPanel();
        desk().workspace.frontmost = std::make_shared<Application>(4711, u"same process"_s);
        QTest::ignoreMessage(QtInfoMsg, "Paste → ? pid 4711; target is frontmost now? true");
        desk().requestPaste();
    }

    void withoutAnyFrontmostApplicationTheTargetIsNotFrontmost()
    {
        desk().showPanel();
        desk().workspace.frontmost.reset();
        QTest::ignoreMessage(QtInfoMsg,
                             "Paste → org.editor pid 4711; target is frontmost now? false");
        desk().requestPaste();
    }

    void aTargetThatIsNotLiveIsNotPastedInto_data()
    {
        QTest::addColumn<int>("pid");
        QTest::addColumn<bool>("finishedLaunching");
        QTest::addColumn<bool>("terminated");
        QTest::newRow("no process id") << 0 << true << false;
        QTest::newRow("negative process id") << -1 << true << false;
        QTest::newRow("still launching") << 4711 << false << false;
        QTest::newRow("terminated") << 4711 << true << true;
    }
    void aTargetThatIsNotLiveIsNotPastedInto()
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

    void aTargetThatQuitsMeanwhileGetsNoKeystroke()
    {
        desk().showPanel();
        desk().requestPaste();
        desk().clock.advance(150ms);
        desk().editor->terminated = true;
        desk().clock.advance(1s);
        QVERIFY(desk().keystroke.targets.empty());
    }

    void theTargetOfTheRequestIsKeptWhenThePanelIsShownAgain()
    {
        desk().showPanel();
        desk().requestPaste();
        desk().panel.setKey(false);
        desk().workspace.frontmost = std::make_shared<Application>(5, u"other"_s);
        desk().controller->show();
        desk().clock.advance(1s);
        QVERIFY(desk().onlyTheEditorWasPastedInto());
    }

    void thePanelNeverBecomesItsOwnTarget()
    {
        desk().showPanel();
        desk().workspace.frontmost = std::make_shared<Application>(1, u"app.driftbox"_s);
        QTest::ignoreMessage(QtInfoMsg, "Panel show: captured target org.editor pid 4711");
        desk().controller->show();
        desk().requestPaste();
        desk().clock.advance(1s);
        QVERIFY(desk().onlyTheEditorWasPastedInto());
    }

    void theTargetOutlivesHiding()
    {
        desk().showPanel();
        desk().controller->hide();
        desk().clock.advance(1s);
        desk().requestPaste();
        desk().clock.advance(1s);
        QVERIFY(desk().onlyTheEditorWasPastedInto());
        QCOMPARE(desk().panel.orderOuts, 1);
    }

    void beforeTheFirstShowThereIsNoTarget()
    {
        QTest::ignoreMessage(QtCriticalMsg,
                             "Paste requested but no live frontmost target was captured");
        desk().requestPaste();
    }

    void otherNotificationsAreIgnored()
    {
        desk().showPanel();
        desk().notifications.post(u"app.driftbox.somethingElse"_s);
        QVERIFY(desk().animator.visible());
        desk().clock.advance(1s);
        QVERIFY(desk().keystroke.targets.empty());
    }

    void stepsAfterTheControllersEndAreNobodys()
    {
        desk().showPanel();
        desk().requestPaste();
        desk().controller.reset();
        desk().clock.advance(1s);
        QCOMPARE(desk().editor->activations, 0);
        QCOMPARE(desk().panel.orderOuts, 0);
        QVERIFY(!desk().keys.press(Qt::Key_Escape));
    }

private:
    Desktop& desk() { return *m_desktop; }

    std::optional<Desktop> m_desktop;
};

QTEST_MAIN(TestMagicPanelController)
#include "TestMagicPanelController.moc"
