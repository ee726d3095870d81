#include "panel/view/MagicPanelRootView.h"

#include "fakes/FakeAppearance.h"
#include "panel/PanelAnimator.h"
#include "panel/SectionRegistry.h"
#include "panel/view/RailIconButton.h"
#include "support/main/TestMain.h"
#include "ui/theme/Theme.h"
#include "ui/theme/ThemeFollower.h"
#include "unit/ui/theme/ShownColors.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

// In a window of 552 x 648.
constexpr QRect panelCard(28, 28, 496, 592);

QColor panelShadow(double distance)
{
    return ShownColors::shadow(0.18, 14, distance);
}

} // namespace

/// Pins the appearance of the panel.
class TestPanelMeasures : public QObject
{
    Q_OBJECT

    FakeAppearance m_appearance;
    ThemeFollower m_theme{m_appearance};

private Q_SLOTS:
    void cardHasItsColorsAndShadow_data()
    {
        QTest::addColumn<QPoint>("place");
        QTest::addColumn<QColor>("color");
        const QColor ground = Theme::panelBackground();
        const QColor outline =
            ShownColors::over(ground, Theme::withOpacity(Theme::primary(), 0.08));
        const QColor divider = Theme::withOpacity(Theme::divider(), 0.6);
        const QPoint middle = panelCard.center();
        const auto row = [](const char* name, QPoint place, const QColor& color) {
            QTest::newRow(name) << place << color;
        };
        // The shadow lies 6 points lower than the card.
        row("far above the card", {middle.x(), 5}, panelShadow(34 - 5.5));
        row("above the card", {middle.x(), 20}, panelShadow(34 - 20.5));
        row("close above the card", {middle.x(), 27}, panelShadow(34 - 27.5));
        row("left of the card", {20, middle.y()}, panelShadow(28 - 20.5));
        row("close right of the card", {524, middle.y()}, panelShadow(524.5 - 524));
        row("right of the card", {535, middle.y()}, panelShadow(535.5 - 524));
        row("close below the card", {middle.x(), 620}, panelShadow(620.5 - 626));
        row("below the card", {middle.x(), 632}, panelShadow(632.5 - 626));
        row("far below the card", {middle.x(), 647}, panelShadow(647.5 - 626));
        row("the outline above", {middle.x(), 28}, outline);
        row("the outline on the left", {28, middle.y()}, outline);
        row("within the outline", {29, middle.y()}, ground);
        row("the rail's last column", {71, middle.y()}, ground);
        row("the divider", {72, middle.y()}, ShownColors::over(ground, divider));
        row("the page's first column", {73, middle.y()}, ground);
    }
    void cardHasItsColorsAndShadow()
    {
        QFETCH(const QPoint, place);
        QFETCH(const QColor, color);
        constexpr int rounding = 1; // the shadow is faint
        ShownColors::compare(picture().pixelColor(place), color, rounding);
    }

    // At the diagonal the corner of a radius of 14 begins 4.1 points from either side.
    void cardHasRoundCorners_data()
    {
        QTest::addColumn<QPoint>("outside");
        QTest::addColumn<QPoint>("inside");
        QTest::newRow("upper left") << QPoint(31, 31) << QPoint(32, 32);
        QTest::newRow("upper right") << QPoint(520, 31) << QPoint(519, 32);
        QTest::newRow("lower left") << QPoint(31, 616) << QPoint(32, 615);
        QTest::newRow("lower right") << QPoint(520, 616) << QPoint(519, 615);
    }
    void cardHasRoundCorners()
    {
        QFETCH(const QPoint, outside);
        QFETCH(const QPoint, inside);
        constexpr int deepestShadow = 46;
        const QImage shown = picture();
        QVERIFY(shown.pixelColor(outside).alpha() <= deepestShadow);
        QVERIFY(shown.pixelColor(inside).alpha() >= 250);
    }

    void activeButtonHasItsBackground_data()
    {
        QTest::addColumn<QPoint>("place");
        QTest::addColumn<double>("coverage");
        // At the diagonal the corner of a radius of 6 begins 1.76 points from either side.
        QTest::newRow("the corner") << QPoint(0, 0) << 0.0;
        QTest::newRow("on the corner's curve") << QPoint(1, 1) << 0.12;
        QTest::newRow("within the corner") << QPoint(2, 2) << 1.0;
        QTest::newRow("a side") << QPoint(0, 16) << 1.0;
    }
    void activeButtonHasItsBackground()
    {
        QFETCH(const QPoint, place);
        QFETCH(const double, coverage);
        RailIconButton button(u"gearshape"_s, u"Settings"_s, nullptr);
        button.setActive(true);
        button.resize(32, 32);
        ShownColors::compare(
            ShownColors::pictureOf(button, QWidget::RenderFlags()).pixelColor(place),
            Theme::withOpacity(Theme::accent(), 0.15 * coverage));
    }

private:
    [[nodiscard]] static QImage picture()
    {
        PanelAnimator animator;
        SectionRegistry registry;
        QWidget window;
        window.setAttribute(Qt::WA_TranslucentBackground);
        window.resize(552, 648);
        auto* view = new MagicPanelRootView(animator, registry, &window);
        view->setGeometry(window.rect());
        window.show();
        return ShownColors::pictureOf(window);
    }
};

DRIFTBOX_TEST(TestPanelMeasures, QApplication)
#include "TestPanelMeasures.moc"
