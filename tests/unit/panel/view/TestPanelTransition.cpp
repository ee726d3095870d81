#include "panel/view/PanelTransition.h"

#include "panel/PanelAnimator.h"
#include "panel/view/CardEffect.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QVBoxLayout>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

constexpr SpringCurve transitionSpring{.response = 0.34, .dampingFraction = 0.7};
constexpr EaseInCurve easeIn{.duration = 0.16};

/// A square of one color.
class Square final : public QWidget
{
public:
    explicit Square(QWidget* parent)
        : QWidget(parent)
    {
        setGeometry(50, 50, 100, 100);
        paint(Qt::red);
    }

    void paint(const QColor& color)
    {
        setPalette(color);
        setAutoFillBackground(true);
    }
};

/// A window of 200 x 200 with a square in its middle.
struct Window
{
    Window()
    {
        window.setAttribute(Qt::WA_TranslucentBackground);
        window.resize(200, 200);
    }

    [[nodiscard]] QColor colorAt(int x, int y)
    {
        QImage image(window.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        window.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        return image.pixelColor(x, y);
    }

    PanelAnimator animator;
    QWidget window;
    Square& content = *new Square(&window);
};

/// The same with a transition on the square.
struct TransitionPanel : Window
{
    TransitionPanel() { window.show(); }

    [[nodiscard]] bool isMoving() const { return content.graphicsEffect() != nullptr; }

    /// A field in the square that gets the typing.
    [[nodiscard]] QLineEdit* addField()
    {
        auto* field = new QLineEdit(&content);
        field->show();
        field->setFocus();
        return field;
    }

    PanelTransition& transition = *new PanelTransition(animator, content);
};

} // namespace

class TestPanelTransition : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The effect

    void effectScalesAboutTheCenterAndFades_data()
    {
        QTest::addColumn<double>("presence");
        QTest::addColumn<int>("firstPixel");
        QTest::addColumn<int>("alpha");
        QTest::newRow("nearly out") << 0.001 << 56 << 0;
        QTest::newRow("half") << 0.5 << 53 << 128;
        QTest::newRow("in") << 1.0 << 50 << 255;
        QTest::newRow("over, where there is no room") << 1.5 << 50 << 255;
    }
    void effectScalesAboutTheCenterAndFades()
    {
        QFETCH(double, presence);
        QFETCH(int, firstPixel);
        QFETCH(int, alpha);
        Window window;
        auto* effect = new CardEffect;
        window.content.setGraphicsEffect(effect);
        effect->setPresence(presence);

        QVERIFY(std::abs(window.colorAt(100, 100).alpha() - alpha) <= 1);
        QVERIFY(std::abs(window.colorAt(firstPixel + 1, 100).alpha() - alpha) <= 1);
        QVERIFY(std::abs(window.colorAt(100, 198 - firstPixel).alpha() - alpha) <= 1);
        QCOMPARE(window.colorAt(firstPixel - 2, 100).alpha(), 0);
        QCOMPARE(window.colorAt(100, 201 - firstPixel).alpha(), 0);
    }

    void nothingIsDrawnWithoutPresence()
    {
        Window window;
        window.content.setGraphicsEffect(new CardEffect);
        QCOMPARE(window.colorAt(100, 100).alpha(), 0);
    }

    void effectFollowsTheContentUntilFrozen()
    {
        Window window;
        window.window.show();
        auto* effect = new CardEffect;
        window.content.setGraphicsEffect(effect);
        effect->setPresence(1.0);
        QCOMPARE(window.colorAt(100, 100), QColor(Qt::red));
        window.content.paint(Qt::green);
        QCOMPARE(window.colorAt(100, 100), QColor(Qt::green));

        QPixmap picture(100, 100);
        picture.fill(Qt::blue);
        effect->freeze(picture);
        QCOMPARE(window.colorAt(100, 100), QColor(Qt::blue));
    }

    // The transition

    void effectIsRemovedOnceTheContentIsShown()
    {
        TransitionPanel panel;
        panel.animator.setVisible(true, transitionSpring);
        QVERIFY(panel.isMoving());
        QCOMPARE(panel.colorAt(100, 100).alpha(), 0);
        QTRY_VERIFY(!panel.isMoving());
        QCOMPARE(panel.colorAt(51, 51), QColor(Qt::red));
    }

    void contentFadesOutAndStaysHidden()
    {
        TransitionPanel panel;
        panel.animator.setVisible(true, transitionSpring);
        QTRY_VERIFY(!panel.isMoving());
        panel.animator.setVisible(false, easeIn);
        QVERIFY(panel.isMoving());
        QCOMPARE(panel.colorAt(100, 100), QColor(Qt::red));
        QTRY_COMPARE(panel.colorAt(100, 100).alpha(), 0);
        QVERIFY(panel.isMoving());

        panel.window.hide();
        QVERIFY(!panel.isMoving());
    }

    void outgoingContentIsFrozenAndTakesNoInput()
    {
        TransitionPanel panel;
        panel.animator.setVisible(true, transitionSpring);
        QVERIFY(panel.content.isEnabled());
        panel.animator.setVisible(false, easeIn);
        QVERIFY(!panel.content.isEnabled());
        panel.content.paint(Qt::green);
        QVERIFY(panel.colorAt(100, 100).green() == 0);

        panel.window.hide();
        QVERIFY(panel.content.isEnabled());
    }

    void keysDuringHidingAreDropped()
    {
        TransitionPanel panel;
        QLineEdit* const field = panel.addField();
        QVERIFY(QTest::qWaitForWindowActive(&panel.window));
        panel.animator.setVisible(true, transitionSpring);
        panel.animator.setVisible(false, easeIn);
        QTest::keyClick(panel.window.windowHandle(), 'a');
        QCOMPARE(field->text(), QString());

        panel.window.hide();
        panel.window.show();
        field->setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&panel.window));
        panel.animator.setVisible(true, transitionSpring);
        QTest::keyClick(panel.window.windowHandle(), 'b');
        QCOMPARE(field->text(), u"b"_s);
    }

    void reversedTransitionContinuesFromItsCurrentState()
    {
        TransitionPanel panel;
        panel.animator.setVisible(true, transitionSpring);
        QTRY_VERIFY(panel.colorAt(100, 100).alpha() > 100);
        panel.animator.setVisible(false, easeIn);
        QVERIFY(panel.colorAt(100, 100).alpha() > 90);
        QTRY_VERIFY(panel.colorAt(100, 100).alpha() < 90);
        panel.animator.setVisible(true, transitionSpring);
        QVERIFY(panel.content.isEnabled());
        QTRY_VERIFY(!panel.isMoving());
        QCOMPARE(panel.colorAt(51, 51), QColor(Qt::red));
    }

    void interruptedTransitionStartsOverNextTime()
    {
        TransitionPanel panel;
        panel.animator.setVisible(true, transitionSpring);
        QTRY_VERIFY(panel.colorAt(100, 100).alpha() > 0);
        panel.animator.setVisible(false, easeIn);
        panel.window.hide();
        panel.window.show();
        panel.animator.setVisible(true, transitionSpring);
        QCOMPARE(panel.colorAt(100, 100).alpha(), 0);
        QTRY_VERIFY(!panel.isMoving());
    }

    void hidingAHiddenWindowNeedsNoAnimation()
    {
        TransitionPanel panel;
        panel.animator.setVisible(true, transitionSpring);
        panel.window.hide();
        panel.animator.setVisible(false, easeIn);
        QVERIFY(!panel.isMoving());
        QVERIFY(panel.content.isEnabled());
    }

    void withoutAnimationContentShowsImmediatelyAndFreezesUntilHidden()
    {
        TransitionPanel panel;
        panel.transition.setAnimated(false);
        panel.animator.setVisible(true, transitionSpring);
        QVERIFY(!panel.isMoving());
        QCOMPARE(panel.colorAt(51, 51), QColor(Qt::red));

        panel.animator.setVisible(false, easeIn);
        QVERIFY(!panel.content.isEnabled());
        QCOMPARE(panel.colorAt(51, 51), QColor(Qt::red));
        panel.window.hide();
        QVERIFY(panel.content.isEnabled());
    }

    void typingDuringShowingIsNotLost()
    {
        TransitionPanel panel;
        QLineEdit* const field = panel.addField();
        QVERIFY(QTest::qWaitForWindowActive(&panel.window));
        panel.animator.setVisible(true, transitionSpring);
        QVERIFY(panel.isMoving());
        for (const char key : {'a', 'b', 'c'})
            QTest::keyClick(panel.window.windowHandle(), key);
        QCOMPARE(field->text(), u"abc"_s);
    }
};

DRIFTBOX_TEST(TestPanelTransition, QApplication)
#include "TestPanelTransition.moc"
