#include "clipboard/recognition/InkMap.h"
#include "clipboard/recognition/TextPieces.h"
#include "support/main/TestMain.h"
#include "unit/clipboard/recognition/RenderedText.h"

#include <algorithm>
#include <random>

#include <QtCore/QElapsedTimer>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

std::vector<QRect> piecesOf(const QImage& picture)
{
    std::vector<QRect> pieces = textPieces(inkOf(picture).marks);
    std::ranges::sort(pieces, {},
                      [](const QRect& box) { return std::pair(box.top(), box.left()); });
    return pieces;
}

} // namespace

class TestTextPieces : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lineIsOnePiece_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("typeface");
        QTest::newRow("words") << u"The quick backup finished at 14:32."_s << u"Inter"_s;
        QTest::newRow("quotes and commas") << u"He said: \"one, two\", and left…"_s << u"Inter"_s;
        QTest::newRow("a path") << u"/usr/share/doc/packages/readme.txt"_s << u"DejaVu Sans"_s;
        QTest::newRow("a dash first") << u"- three of seven"_s << u"Inter"_s;
        QTest::newRow("Chinese") << u"更新完成，共修复十五个问题。"_s << u"Noto Sans CJK SC"_s;
        QTest::newRow("Japanese") << u"アップデートが完了し、十五件の問題を修正。"_s
                                  << u"Noto Sans CJK JP"_s;
        QTest::newRow("Korean") << u"업데이트가 끝났고 문제를 고쳤습니다."_s
                                << u"Noto Serif CJK KR"_s;
    }
    void lineIsOnePiece()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, typeface);
        for (const int size : {11, 13, 16, 24, 48}) {
            const TextStyle style{.typeface = typeface, .pixelSize = size};
            const QImage picture = renderedText(text, style);
            const std::vector<QRect> pieces = piecesOf(picture);
            QCOMPARE(pieces.size(), 1U);
            const int width = QFontMetrics(fontOf(style)).tightBoundingRect(text).width();
            QVERIFY2(
                std::abs(pieces.front().width() - width) <= 4 + size / 16,
                qPrintable(u"%1 px: %2 of %3"_s.arg(size).arg(pieces.front().width()).arg(width)));
        }
    }

    void everyLineOfAParagraphIsAPiece()
    {
        const QImage picture = renderedText(u"First line\nand the second\nthird, gypsy"_s);
        QCOMPARE(piecesOf(picture).size(), 3U);
    }

    void wideGapSeparatesPieces()
    {
        QImage picture = renderedText(u"Name                    Value"_s);
        QCOMPARE(piecesOf(picture).size(), 2U);
    }

    void piecesOfDifferentSizesAreSeparated()
    {
        QImage picture(300, 100, QImage::Format_RGB32);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        drawText(painter, {10, 10}, u"A title"_s, {.pixelSize = 32});
        drawText(painter, {10, 54}, u"and what is below it"_s, {.pixelSize = 12});
        painter.end();
        const std::vector<QRect> pieces = piecesOf(picture);
        QCOMPARE(pieces.size(), 2U);
        QVERIFY(pieces[0].height() > 2 * pieces[1].height());
    }

    void noiseHasNoPieces()
    {
        QImage picture(1000, 800, QImage::Format_RGB32);
        std::minstd_rand random(1);
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                picture.setPixel(x, y, static_cast<QRgb>(random()));
        }
        QVERIFY(piecesOf(picture).empty());
    }

    void scatteredMarksAreProcessedQuickly()
    {
        QImage marks(4'000, 4'000, QImage::Format_Grayscale8);
        marks.fill(0);
        std::minstd_rand random(5);
        for (int i = 0; i < 5'500; ++i) {
            const QPoint place(static_cast<int>(random() % 3'990),
                               static_cast<int>(random() % 3'990));
            for (int y = 0; y < 7; ++y)
                std::fill_n(marks.scanLine(place.y() + y) + place.x(), 5, 255);
        }
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!textPieces(marks).empty());
        QVERIFY2(timer.elapsed() < 10'000, qPrintable(QString::number(timer.elapsed())));
    }

    void plainPictureHasNoPieces()
    {
        QImage picture(100, 100, QImage::Format_RGB32);
        picture.fill(Qt::blue);
        QVERIFY(piecesOf(picture).empty());
    }
};

DRIFTBOX_TEST(TestTextPieces, QGuiApplication)
#include "TestTextPieces.moc"
