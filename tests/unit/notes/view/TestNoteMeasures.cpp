#include "notes/view/NoteButton.h"
#include "notes/view/NotePaper.h"
#include "notes/view/StickyNotePanel.h"
#include "support/main/TestMain.h"
#include "ui/theme/Theme.h"
#include "unit/notes/view/OpenNote.h"
#include "unit/ui/theme/ShownColors.h"

#include <QtTest/QTest>

using namespace driftbox;

namespace {

QColor noteShadow(double distance)
{
    return ShownColors::shadow(0.22, 8, distance);
}

} // namespace

/// Pins the appearance of a note.
class TestNoteMeasures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // A note of 240 x 200 in its window.
    void paperHasItsColors_data()
    {
        QTest::addColumn<QPoint>("place");
        QTest::addColumn<QColor>("color");
        const QColor paper = Theme::noteSwatch(NoteColor::yellow);
        const QColor outline = ShownColors::over(paper, NotePaper::ink(0.10));
        const auto row = [](const char* name, QPoint place, const QColor& color) {
            QTest::newRow(name) << place << color;
        };
        // The shadow lies 3 points lower than the paper.
        row("above the paper", {140, 16}, noteShadow(23 - 16.5));
        row("left of the paper", {15, 120}, noteShadow(20 - 15.5));
        row("right of the paper", {262, 120}, noteShadow(262.5 - 260));
        row("below the paper", {140, 222}, noteShadow(222.5 - 223));
        row("far below the paper", {140, 230}, noteShadow(230.5 - 223));
        row("at the window's lower edge", {140, 239}, noteShadow(239.5 - 223));
        row("the outline above", {140, 20}, outline);
        row("the outline on the left", {20, 120}, outline);
        row("within the outline", {21, 120}, paper);
    }
    void paperHasItsColors()
    {
        QFETCH(const QPoint, place);
        QFETCH(const QColor, color);
        ShownColors::compare(picture().pixelColor(place), color);
    }

    // At the diagonal the corner of a radius of 9 begins 2.64 points from either side.
    void paperHasRoundCorners()
    {
        const QImage shown = picture();
        QVERIFY(shown.pixelColor(21, 21).alpha() < 30);
        QVERIFY(shown.pixelColor(23, 23).alpha() >= 250);
        const double coverage =
            shown.pixelColor(22, 22).alphaF(); // 1 - (5.28 - 4)² / 2, and shadow
        QVERIFY2(coverage > 0.18 && coverage < 0.36, qPrintable(QString::number(coverage)));
    }

    void swatchesAreFilledWithTheirColors_data()
    {
        QTest::addColumn<NoteColor>("color");
        for (const NoteColor color : allNoteColors)
            QTest::newRow(qPrintable(rawValue(color))) << color;
    }
    void swatchesAreFilledWithTheirColors()
    {
        QFETCH(const NoteColor, color);
        NoteSwatchButton swatch(color, nullptr);
        swatch.resize(20, 20);
        const QImage shown = ShownColors::pictureOf(swatch, QWidget::RenderFlags());
        ShownColors::compare(shown.pixelColor(10, 10), Theme::noteSwatch(color));
        ShownColors::compare(shown.pixelColor(1, 1), Qt::transparent);
    }

private:
    [[nodiscard]] static QImage picture()
    {
        OpenNote note;
        FakeFloatingSurfaceFactory surfaces;
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support propagateSizeHints()");
        StickyNotePanel panel(note.viewModel, surfaces, note.desk.pasteboard, note.selectedText);
        panel.resize(280, 240);
        return ShownColors::pictureOf(panel, QWidget::RenderFlags());
    }
};

DRIFTBOX_TEST(TestNoteMeasures, QApplication)
#include "TestNoteMeasures.moc"
