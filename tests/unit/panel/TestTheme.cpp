#include "panel/view/Theme.h"
#include "panel/view/ThemeFollower.h"

#include "fakes/FakeAppearance.h"

#include <algorithm>
#include <cmath>

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

using namespace driftbox;

namespace {

double luminance(const QColor& color)
{
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

/// How well one colour can be told from the other: from 1, not at all, to 21.
double contrast(const QColor& one, const QColor& other)
{
    const double first = luminance(one);
    const double second = luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

} // namespace

class TestTheme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theDesktopsSchemeIsFollowed()
    {
        FakeAppearance appearance;
        const ThemeFollower follower(appearance);
        QVERIFY(Theme::panelBackground().lightness() > 200);
        QVERIFY(Theme::primary().lightness() < 60);

        appearance.setColorScheme(ColorScheme::dark);
        QVERIFY(Theme::panelBackground().lightness() < 60);
        QVERIFY(Theme::primary().lightness() > 200);
    }

    void widgetsAreRepaintedWhenTheSchemeTurns()
    {
        FakeAppearance appearance;
        const ThemeFollower follower(appearance);
        QWidget widget;
        QTRY_COMPARE(widget.palette().color(QPalette::Window), Theme::panelBackground());
        appearance.setColorScheme(ColorScheme::dark);
        QTRY_COMPARE(widget.palette().color(QPalette::Window), Theme::panelBackground());
    }

    void everyTextCanBeRead_data()
    {
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }
    void everyTextCanBeRead()
    {
        QFETCH(bool, dark);
        FakeAppearance appearance;
        appearance.setColorScheme(dark ? ColorScheme::dark : ColorScheme::light);
        const ThemeFollower follower(appearance);

        const QColor background = Theme::panelBackground();
        QVERIFY(contrast(Theme::primary(), background) >= 12.0);
        QVERIFY(contrast(Theme::secondary(), background) >= 4.5);
        QVERIFY(contrast(Theme::tertiary(), background) >= 3.0);
        QVERIFY(contrast(Theme::accent(), background) >= 4.0);
        QVERIFY(contrast(Theme::destructive(), background) >= 3.0);
        const QPalette palette = QApplication::palette();
        QVERIFY(contrast(palette.color(QPalette::Highlight),
                         palette.color(QPalette::HighlightedText)) >= 4.0);
    }

    void fontsHaveTheirSizesAndWeights()
    {
        const FakeAppearance appearance;
        const ThemeFollower follower(appearance);
        QCOMPARE(Theme::Font::rowTitle().pixelSize(), 13);
        QCOMPARE(Theme::Font::rowTitle().weight(), QFont::Normal);
        QCOMPARE(Theme::Font::rowMeta().pixelSize(), 11);
        QCOMPARE(Theme::Font::search().pixelSize(), 14);
        QCOMPARE(Theme::Font::sectionTitle().pixelSize(), 12);
        QCOMPARE(Theme::Font::sectionTitle().weight(), QFont::DemiBold);
    }

    void swatchesAreTheSameInLightAndDark()
    {
        FakeAppearance appearance;
        const ThemeFollower follower(appearance);
        for (const auto scheme : {ColorScheme::light, ColorScheme::dark}) {
            appearance.setColorScheme(scheme);
            QCOMPARE(Theme::noteSwatch(NoteColor::yellow), QColor::fromRgbF(1.0F, 0.95F, 0.68F));
            QCOMPARE(Theme::noteSwatch(NoteColor::blue), QColor::fromRgbF(0.74F, 0.87F, 1.0F));
            QCOMPARE(Theme::noteSwatch(NoteColor::green), QColor::fromRgbF(0.8F, 0.93F, 0.74F));
            QCOMPARE(Theme::noteSwatch(NoteColor::pink), QColor::fromRgbF(1.0F, 0.82F, 0.87F));
        }
    }

    void opacityIsAProduct()
    {
        const QColor half = Theme::withOpacity(Qt::black, 0.5);
        QVERIFY(std::abs(Theme::withOpacity(half, 0.5).alphaF() - 0.25F) < 0.01F);
    }
};

QTEST_MAIN(TestTheme)
#include "TestTheme.moc"
