#include "notes/view/NotePaper.h"
#include "support/main/TestMain.h"
#include "ui/theme/Contrast.h"
#include "ui/theme/Theme.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtTest/QTest>

using namespace driftbox;

class TestNotePaper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everythingOnThePaperIsReadable_data()
    {
        QTest::addColumn<NoteColor>("color");
        for (const NoteColor color : allNoteColors)
            QTest::newRow(qPrintable(rawValue(color))) << color;
    }
    void everythingOnThePaperIsReadable()
    {
        QFETCH(const NoteColor, color);
        const QColor paper = Theme::noteSwatch(color);
        QVERIFY(contrast(NotePaper::ink(), paper) >= 7.0);
        QVERIFY(contrast(NotePaper::ink(), NotePaper::selection(color)) >= 6.0);
        QVERIFY(contrast(blended(NotePaper::symbol(), paper), paper) >= 4.5);
        QVERIFY(contrast(blended(NotePaper::ink(0.5), paper), paper) >= 2.7); // the line of keys
        QVERIFY(contrast(NotePaper::selection(color), paper) >= 1.2);
    }

private:
    static QColor blended(const QColor& ink, const QColor& paper)
    {
        QImage pixel(1, 1, QImage::Format_RGB32);
        pixel.fill(paper);
        QPainter(&pixel).fillRect(pixel.rect(), ink);
        return pixel.pixelColor(0, 0);
    }
};

DRIFTBOX_TEST(TestNotePaper, QApplication)
#include "TestNotePaper.moc"
