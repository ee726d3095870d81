#include "support/main/TestMain.h"
#include "unit/settings/SettingsDesk.h"

#include "fakes/FakeFloatingSurface.h"
#include "settings/view/FormLabel.h"
#include "settings/view/GeneralSettingsView.h"
#include "settings/view/SettingsHeader.h"
#include "settings/view/SettingsWindow.h"
#include "settings/view/SidebarIconTile.h"
#include "settings/view/SwatchButton.h"
#include "settings/view/SystemColors.h"
#include "settings/view/TipPicture.h"
#include "ui/theme/Theme.h"
#include "unit/ui/theme/ShownColors.h"
#include "unit/ui/theme/ShownSymbols.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

QColor windowShadow(double distance)
{
    return ShownColors::shadow(0.22, 14, distance);
}

/// The extent of all that is not transparent.
QRect drawnIn(const QImage& picture)
{
    QRect drawn;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (qAlpha(picture.pixel(x, y)) > 0)
                drawn |= QRect(x, y, 1, 1);
        }
    }
    return drawn;
}

} // namespace

/// Pins the appearance of the settings window.
class TestSettingsMeasures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // A card of 760 x 520 in its window.
    void windowHasItsColorsAndShadow_data()
    {
        QTest::addColumn<QPoint>("place");
        QTest::addColumn<QColor>("color");
        const QColor faint = Theme::withOpacity(Theme::primary(), 0.12);
        const QColor page = QApplication::palette().color(QPalette::Base);
        const QColor sidebar = Theme::panelBackground();
        const auto row = [](const char* name, QPoint place, const QColor& color) {
            QTest::newRow(name) << place << color;
        };
        // The shadow lies 6 points lower than the card.
        row("above the card", {408, 20}, windowShadow(34 - 20.5));
        row("left of the card", {20, 288}, windowShadow(28 - 20.5));
        row("right of the card", {795, 288}, windowShadow(795.5 - 788));
        row("close below the card", {408, 548}, windowShadow(548.5 - 554));
        row("below the card", {408, 560}, windowShadow(560.5 - 554));
        row("the outline of the page", {408, 28}, ShownColors::over(page, faint));
        row("the outline of the sidebar", {28, 288}, ShownColors::over(sidebar, faint));
        row("the sidebar", {29, 288}, sidebar);
        row("the page", {408, 29}, page);
    }
    void windowHasItsColorsAndShadow()
    {
        QFETCH(const QPoint, place);
        QFETCH(const QColor, color);
        SettingsDesk desk;
        FakeFloatingSurfaceFactory surfaces;
        SettingsWindow window(surfaces, desk.services, {});
        const QImage shown = ShownColors::pictureOf(window, QWidget::RenderFlags());
        ShownColors::compare(shown.pixelColor(place), color);
    }

    void iconTilesHaveTheirSizes_data()
    {
        QTest::addColumn<bool>("isHeader");
        QTest::addColumn<QRect>("tile");
        QTest::addColumn<int>("symbolSize");
        QTest::addColumn<int>("weight");
        QTest::newRow("in the sidebar")
            << false << QRect(10, 10, 22, 22) << 12 << int(Symbols::Weight::bold);
        QTest::newRow("in the header")
            << true << QRect(24, 18, 58, 58) << 26 << int(Symbols::Weight::semibold);
    }
    void iconTilesHaveTheirSizes()
    {
        QFETCH(const bool, isHeader);
        QFETCH(const QRect, tile);
        QFETCH(const int, symbolSize);
        QFETCH(const int, weight);
        const QImage shown = isHeader ? headerPicture() : sidebarTilePicture(tile);
        QCOMPARE(drawnIn(shown), tile);
        QCOMPARE(shown.pixelColor(tile.center().x(), tile.bottom()),
                 systemColor(SystemColor::gray)); // below its lighter top
        const QPixmap symbol = Symbols::pixmap(u"gearshape"_s,
                                               {.size = symbolSize,
                                                .color = Qt::white,
                                                .weight = static_cast<Symbols::Weight>(weight)},
                                               1.0);
        const QPoint inset(qRound((tile.width() - symbol.width()) / 2.0),
                           qRound((tile.height() - symbol.height()) / 2.0));
        QCOMPARE(whiteIn(shown), whiteIn(symbol.toImage()).translated(tile.topLeft() + inset));
    }

    // At the diagonal the corner of a radius of 6 begins 1.76 points from either side.
    void smallPicturesHaveCornersOfRadius6_data()
    {
        QTest::addColumn<QPoint>("place");
        QTest::addColumn<double>("coverage");
        QTest::newRow("the corner") << QPoint(0, 0) << 0.0;
        QTest::newRow("on the corner's curve") << QPoint(1, 1) << 0.12;
        QTest::newRow("within the corner") << QPoint(2, 2) << 1.0;
    }
    void smallPicturesHaveCornersOfRadius6()
    {
        QFETCH(const QPoint, place);
        QFETCH(const double, coverage);
        const QImage tile = sidebarTilePicture({0, 0, 22, 22});
        QVERIFY(std::abs(tile.pixelColor(place).alphaF() - coverage) < 0.05);
        const QImage tip = tipPicture();
        ShownColors::compare(tip.pixelColor(place),
                             Theme::withOpacity(Theme::primary(), 0.08 * coverage));
    }

    void missingTipImageShowsAPlaceholderOfItsSize()
    {
        const QImage tip = tipPicture();
        const QColor ground = Theme::withOpacity(Theme::primary(), 0.08);
        QCOMPARE(tip.width(), 150);
        ShownColors::compare(tip.pixelColor(75, 189), ground);
        ShownColors::compare(tip.pixelColor(75, 190), Qt::transparent);
        ShownColors::compare(tip.pixelColor(0, 95), ground);
        ShownColors::compare(tip.pixelColor(149, 95), ground);
    }

    void thresholdHasItsOwnColumn()
    {
        SettingsDesk desk;
        GeneralSettingsView page(desk.services, nullptr);
        page.resize(551, 420);
        page.show();
        const auto labels = page.findChildren<FormLabel*>();
        const auto value = std::ranges::find(labels, u"300 ms"_s, &QLabel::text);
        QVERIFY(value != labels.end());
        QCOMPARE((*value)->width(), 56);
        QVERIFY((*value)->alignment().testFlag(Qt::AlignRight));
    }

    void chosenSwatchIsOutlinedInTheAccentColor_data()
    {
        QTest::addColumn<int>("x"); // right of the center, which is at 14
        QTest::addColumn<QColor>("chosen");
        QTest::addColumn<QColor>("other");
        const QColor pink = Theme::noteSwatch(NoteColor::pink);
        const QColor clear(Qt::transparent);
        const QColor faint = Theme::withOpacity(Qt::black, 0.25 * 0.1); // a quarter of a pixel
        QTest::newRow("within the outlines") << 22 << pink << pink;
        QTest::newRow("the inner half") << 23 << Theme::accent() << ShownColors::over(pink, faint);
        QTest::newRow("the outer half") << 24 << Theme::accent() << faint;
        QTest::newRow("outside") << 25 << clear << clear;
    }
    void chosenSwatchIsOutlinedInTheAccentColor()
    {
        QFETCH(const int, x);
        QFETCH(const QColor, chosen);
        QFETCH(const QColor, other);
        SwatchButton swatch(NoteColor::pink, nullptr);
        swatch.resize(swatch.sizeHint());
        QCOMPARE(swatch.size(), QSize(28, 28)); // 20 and room for the outlines
        const auto shown = [&swatch, x] {
            return ShownColors::pictureOf(swatch, QWidget::RenderFlags()).pixelColor(x, 14);
        };
        constexpr int curve = 14; // the outline is no straight line
        ShownColors::compare(shown(), other, curve);
        swatch.setChecked(true);
        ShownColors::compare(shown(), chosen, curve);
    }

private:
    [[nodiscard]] static QImage headerPicture()
    {
        SettingsHeader header(nullptr);
        header.setSection(SettingsSection::general);
        header.resize(551, 94);
        return ShownColors::pictureOf(header, QWidget::RenderFlags());
    }
    [[nodiscard]] static QImage sidebarTilePicture(const QRect& tile)
    {
        QImage image(42, 42, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        paintSidebarIconTile(painter, tile, SettingsSection::general);
        return image;
    }
    [[nodiscard]] static QImage tipPicture()
    {
        TipPicture tip(u"missing"_s, u"Missing"_s, nullptr);
        tip.resize(tip.sizeHint());
        return ShownColors::pictureOf(tip, QWidget::RenderFlags());
    }
    /// The extent of what is nearly white.
    [[nodiscard]] static QRect whiteIn(const QImage& picture)
    {
        QImage bright = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
        for (int y = 0; y < bright.height(); ++y) {
            for (int x = 0; x < bright.width(); ++x) {
                const bool isBright = qBlue(bright.pixel(x, y)) > 230;
                bright.setPixel(x, y, isBright ? 0xffffffff : 0);
            }
        }
        return drawnIn(bright);
    }
};

DRIFTBOX_TEST(TestSettingsMeasures, QApplication)
#include "TestSettingsMeasures.moc"
