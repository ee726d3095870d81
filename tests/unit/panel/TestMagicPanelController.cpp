#include "support/main/TestMain.h"
#include "unit/panel/PanelDesktop.h"

#include <optional>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {
using Application = FakeRunningApplication;
}

class TestMagicPanelController : public QObject
{
    Q_OBJECT

    PanelDesktop& desk() { return *m_desktop; }

    std::optional<PanelDesktop> m_desktop;

private Q_SLOTS:
    void init() { m_desktop.emplace(); }
    void cleanup() { m_desktop.reset(); }

    // Showing

    void panelIsHiddenInitially()
    {
        QVERIFY(!desk().controller->isPanelVisible());
        QVERIFY(!desk().animator.visible());
        QCOMPARE(desk().keys.monitorCount(), 0U);
    }

    void showingTakesTheKeyboardAndAnimatesTheContentIn()
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

    void panelIsPlacedAtTheLocatedCaret()
    {
        desk().caretLookup.caret = QRectF(100, 200, 1, 18);
        desk().showPanel();
        QCOMPARE(desk().panel.frame(), QRectF(100, 28, 552, 648));
    }

    void panelIsCenteredOnTheMouseScreenWithoutACaret()
    {
        desk().screens.list.push_back(
            {QRectF(-1280, 100, 1280, 800), QRectF(-1280, 140, 1280, 760), QRect(), 1.0});
        desk().screens.mouse = {-100, 200};
        desk().showPanel();
        QCOMPARE(desk().panel.frame(), QRectF(-640 - 276, 520 - 324, 552, 648));
    }

    void missingFrontmostApplicationIsLoggedAsNil()
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

    void targetWithoutBundleIdentifierIsLoggedAsNil()
    {
        desk().editor->bundleId.reset();
        QTest::ignoreMessage(QtInfoMsg, "Panel show: captured target nil pid 4711");
        desk().showPanel();
    }

    void contentIsUpdatedBeforeThePanelIsVisible()
    {
        const QSignalSpy aboutToShow(desk().controller.get(), &MagicPanelController::aboutToShow);
        connect(desk().controller.get(), &MagicPanelController::aboutToShow, this,
                [this] { QVERIFY(!desk().panel.isVisible()); });
        desk().showPanel();
        QCOMPARE(aboutToShow.count(), 1);
    }

    // Waiting for the caret

    void panelCountsAsVisibleWhileWaitingForTheCaret()
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

    void targetIsCapturedBeforeWaitingForTheCaret()
    {
        desk().caretLookup.answersAtOnce = false;
        desk().controller->show();
        desk().workspace.frontmost = std::make_shared<Application>(5, u"other"_s);
        desk().caretLookup.answerAll(std::nullopt);
        desk().requestPaste();
        desk().clock.advance(1s);
        QVERIFY(desk().onlyTheEditorWasPastedInto());
    }

    void secondShowWhileWaitingForTheCaretDoesNothing()
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

    void hidingWhileWaitingForTheCaretCancelsTheShow()
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

    void answerToACanceledShowIsDropped()
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

    void answerAfterDestructionIsIgnored()
    {
        desk().caretLookup.answersAtOnce = false;
        desk().controller->show();
        desk().controller.reset();
        desk().caretLookup.answerAll(std::nullopt);
        QVERIFY(desk().panel.presentations.empty());
    }

    // Hiding

    void hidingAnimatesTheContentOutBeforeTheWindowGoes()
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

    void hidingPanelIsClickThrough()
    {
        desk().showPanel();
        QVERIFY(!desk().panel.isClickThrough);
        desk().controller->hide();
        QVERIFY(desk().panel.isClickThrough);
        desk().clock.advance(170ms);
        desk().showPanel();
        QVERIFY(!desk().panel.isClickThrough);
    }

    void panelShownWhileHidingTakesClicksAgain()
    {
        desk().showPanel();
        desk().controller->hide();
        desk().showPanel();
        QVERIFY(!desk().panel.isClickThrough);
    }

    void panelThatLosesTheKeyboardIsClickThrough()
    {
        desk().showPanel();
        desk().panel.setKey(false);
        QVERIFY(desk().panel.isClickThrough);
    }

    void hidingAHiddenPanelDoesNothing()
    {
        const QSignalSpy changed(&desk().animator, &PanelAnimator::visibleChanged);
        desk().controller->hide();
        desk().clock.advance(1s);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(desk().panel.orderOuts, 0);
    }

    void hidingTwiceAnimatesAndOrdersOutOnce()
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

    void panelCanBeShownAgainAfterHiding()
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

    void escapeHidesThePanelAndIsConsumed()
    {
        desk().showPanel();
        QVERIFY(!desk().keys.press(Qt::Key_A));
        QVERIFY(!desk().keys.press(Qt::Key_Return));
        QVERIFY(desk().animator.visible());
        QVERIFY(desk().keys.press(Qt::Key_Escape));
        QVERIFY(!desk().animator.visible());
        // A hidden panel does not handle keys.
        QVERIFY(!desk().keys.press(Qt::Key_Escape));
    }

    void losingTheKeyboardHidesThePanel()
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

    void showingWhileHidingDoesNotCancelTheHide()
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
};

DRIFTBOX_TEST(TestMagicPanelController, QGuiApplication)
#include "TestMagicPanelController.moc"
