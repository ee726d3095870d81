#include "panel/PanelAnimator.h"
#include "support/main/TestMain.h"

#include <cmath>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace std::chrono_literals;

namespace {
constexpr SpringCurve spring{.response = 0.34, .dampingFraction = 0.7};
constexpr EaseInCurve easeIn{.duration = 0.16};
} // namespace

class TestPanelAnimator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isNotVisibleInitially() { QVERIFY(!PanelAnimator().visible()); }

    void observersSeeTheNewValueAndItsCurve()
    {
        PanelAnimator animator;
        int notifications = 0;
        connect(&animator, &PanelAnimator::visibleChanged, this, [&](bool visible) {
            ++notifications;
            QVERIFY(visible && animator.visible());
            QCOMPARE(animator.curve(), AnimationCurve(spring));
        });
        animator.setVisible(true, spring);
        QCOMPARE(notifications, 1);
    }

    void settingTheSameValueNotifiesNobodyAndKeepsTheCurve()
    {
        PanelAnimator animator;
        animator.setVisible(true, spring);
        const QSignalSpy changed(&animator, &PanelAnimator::visibleChanged);
        animator.setVisible(true, easeIn);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(animator.curve(), AnimationCurve(spring));
    }

    void curvesStartAtZeroAndEndAtOne_data()
    {
        QTest::addColumn<bool>("isSpring");
        QTest::newRow("spring") << true;
        QTest::newRow("ease in") << false;
    }
    void curvesStartAtZeroAndEndAtOne()
    {
        QFETCH(bool, isSpring);
        const AnimationCurve curve = isSpring ? AnimationCurve(spring) : AnimationCurve(easeIn);
        QCOMPARE(progress(curve, 0s), 0.0);
        QCOMPARE(progress(curve, -1s), 0.0);
        QVERIFY(std::abs(progress(curve, duration(curve)) - 1.0) <= 0.004);
        QVERIFY(std::abs(progress(curve, 10s) - 1.0) < 1e-9);
    }

    void springIsQuickAndOvershootsALittle()
    {
        // The first crest of the swing: half a period in, exp(-pi * 0.7 / sqrt(1 - 0.49)) high.
        const std::chrono::duration<double> crest(0.34 / 2.0 / std::sqrt(0.51));
        QVERIFY(std::abs(progress(spring, crest) - 1.0460) < 0.0001);
        QVERIFY(progress(spring, 100ms) > 0.5);
        QVERIFY(duration(spring) < 500ms);
    }

    void springStaysSettledAfterItsDuration()
    {
        for (auto elapsed = duration(spring); elapsed < 2s; elapsed += 1ms)
            QVERIFY(std::abs(progress(spring, elapsed) - 1.0) <= 0.004);
    }

    void easeInFollowsItsBezierCurve_data()
    {
        QTest::addColumn<int>("milliseconds");
        QTest::addColumn<double>("expected");
        // Where the Bézier curve through (0.42, 0) and (1, 1) stands then.
        QTest::newRow("an eighth") << 20 << 0.02598;
        QTest::newRow("a quarter") << 40 << 0.09346;
        QTest::newRow("half") << 80 << 0.31536;
        QTest::newRow("three quarters") << 120 << 0.62186;
        QTest::newRow("all") << 160 << 1.0;
    }
    void easeInFollowsItsBezierCurve()
    {
        QFETCH(const int, milliseconds);
        QFETCH(const double, expected);
        QCOMPARE(duration(easeIn), std::chrono::duration<double>(0.16));
        const double shown = progress(easeIn, std::chrono::milliseconds(milliseconds));
        QVERIFY2(std::abs(shown - expected) < 0.0005, qPrintable(QString::number(shown)));
    }
};

DRIFTBOX_TEST(TestPanelAnimator, QCoreApplication)
#include "TestPanelAnimator.moc"
