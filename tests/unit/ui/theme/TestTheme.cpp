#include "support/main/TestMain.h"
#include "ui/theme/Contrast.h"
#include "ui/theme/Theme.h"
#include "ui/theme/ThemeFollower.h"

#include "fakes/FakeAppearance.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

using namespace driftbox;

class TestTheme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void colorSchemeOfTheDesktopIsFollowed()
    {
        FakeAppearance appearance;
        const ThemeFollower follower(appearance);
        QVERIFY(Theme::panelBackground().lightness() > 200);
        QVERIFY(Theme::primary().lightness() < 60);
        QVERIFY(!Theme::isDark());

        appearance.setColorScheme(ColorScheme::dark);
        QVERIFY(Theme::panelBackground().lightness() < 60);
        QVERIFY(Theme::primary().lightness() > 200);
        QVERIFY(Theme::isDark());
    }

    void widgetPalettesFollowTheColorScheme()
    {
        FakeAppearance appearance;
        const ThemeFollower follower(appearance);
        QWidget widget;
        const QColor light = Theme::panelBackground();
        QTRY_COMPARE(widget.palette().color(QPalette::Window), light);
        appearance.setColorScheme(ColorScheme::dark);
        QTRY_VERIFY(widget.palette().color(QPalette::Window) != light);
        QCOMPARE(widget.palette().color(QPalette::Window), Theme::panelBackground());
    }

    void everyTextColorHasEnoughContrast_data()
    {
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }
    void everyTextColorHasEnoughContrast()
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

    void accentColorOfTheDesktopIsUsed()
    {
        FakeAppearance appearance;
        const ThemeFollower follower(appearance);
        const QColor own = Theme::accent();
        const QColor purple(0x7a, 0x33, 0xb8);
        appearance.setAccentColor(purple);
        QCOMPARE(Theme::accent(), purple);
        QCOMPARE(QApplication::palette().color(QPalette::Highlight), purple);
        appearance.setAccentColor(std::nullopt);
        QCOMPARE(Theme::accent(), own);
    }

    void everyAccentHasEnoughContrast_data()
    {
        QTest::addColumn<QColor>("accent");
        for (const char* name : {"yellow", "white", "black", "navy", "red", "lime", "#777777"})
            QTest::newRow(name) << QColor(QLatin1String(name));
    }
    void everyAccentHasEnoughContrast()
    {
        QFETCH(QColor, accent);
        FakeAppearance appearance;
        const ThemeFollower follower(appearance);
        appearance.setAccentColor(accent);
        for (const auto scheme : {ColorScheme::light, ColorScheme::dark}) {
            appearance.setColorScheme(scheme);
            QVERIFY(contrast(Theme::accent(), Theme::panelBackground()) >= 3.0);
            const QPalette palette = QApplication::palette();
            QVERIFY(contrast(palette.color(QPalette::Highlight),
                             palette.color(QPalette::HighlightedText)) >= 3.0);
        }
    }

    void contrastIsComputed()
    {
        QCOMPARE(contrast(Qt::black, Qt::white), 21.0);
        QCOMPARE(contrast(Qt::white, Qt::black), 21.0);
        QCOMPARE(contrast(Qt::red, Qt::red), 1.0);
        QCOMPARE(withContrast(Qt::red, Qt::white, 3.0), QColor(Qt::red));
        QCOMPARE(withContrast(Qt::black, Qt::black, 22.0), QColor(Qt::white));
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

    void opacityMultiplies()
    {
        const QColor half = Theme::withOpacity(Qt::black, 0.5);
        QVERIFY(std::abs(Theme::withOpacity(half, 0.5).alphaF() - 0.25F) < 0.01F);
    }

    void mixingInterpolatesBetweenColors()
    {
        QCOMPARE(Theme::mixed(Qt::red, Qt::blue, 0.0), QColor(Qt::red));
        QCOMPARE(Theme::mixed(Qt::red, Qt::blue, 1.0), QColor(Qt::blue));
        const QColor between = Theme::mixed(Qt::black, Theme::withOpacity(Qt::white, 0.0), 0.25);
        QCOMPARE(between.red(), 64);
        QCOMPARE(between.alpha(), 191);
    }
};

DRIFTBOX_TEST(TestTheme, QApplication)
#include "TestTheme.moc"
