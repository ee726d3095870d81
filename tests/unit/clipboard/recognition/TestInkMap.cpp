#include "clipboard/recognition/InkMap.h"
#include "support/main/TestMain.h"
#include "unit/clipboard/recognition/RenderedText.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

QImage plainImage(const QSize& size, const QColor& ground = Qt::white)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(ground);
    return image;
}

/// `picture`, black on white, in other colors. Text painted in them would be bolder or finer.
QImage recolored(QImage picture, const QColor& ink, const QColor& ground)
{
    const auto mixed = [](int inkPart, int groundPart, int lightness) {
        return (inkPart * (255 - lightness) + groundPart * lightness) / 255;
    };
    for (int y = 0; y < picture.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            const int lightness = qGray(line[x]);
            line[x] = qRgb(mixed(ink.red(), ground.red(), lightness),
                           mixed(ink.green(), ground.green(), lightness),
                           mixed(ink.blue(), ground.blue(), lightness));
        }
    }
    return picture;
}

int marksIn(const InkMap& map, const QRect& area)
{
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            count += map.marks.constScanLine(y)[x] != 0 ? 1 : 0;
    }
    return count;
}

} // namespace

class TestInkMap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textIsFoundOnEveryBackground_data()
    {
        QTest::addColumn<QColor>("ink");
        QTest::addColumn<QColor>("ground");
        QTest::newRow("white on black") << QColor(Qt::white) << QColor(Qt::black);
        QTest::newRow("gray on gray") << QColor(0x808080) << QColor(0xe0e0e0);
        QTest::newRow("red on a green as bright") << QColor(0xc00000) << QColor(0x006200);
        QTest::newRow("white on blue") << QColor(Qt::white) << QColor(0x2f6fed);
    }
    void textIsFoundOnEveryBackground()
    {
        QFETCH(const QColor, ink);
        QFETCH(const QColor, ground);
        const QImage picture = renderedText(u"Settings"_s);
        const InkMap reference = inkOf(picture);
        const InkMap map = inkOf(recolored(picture, ink, ground));
        const int marks = marksIn(reference, reference.marks.rect());
        int different = 0;
        for (int y = 0; y < map.marks.height(); ++y) {
            for (int x = 0; x < map.marks.width(); ++x)
                different += map.marks.constScanLine(y)[x] != reference.marks.constScanLine(y)[x];
        }
        QVERIFY2(marks > 100 && different * 5 < marks,
                 qPrintable(u"%1 of %2"_s.arg(different).arg(marks)));
    }

    void everyPanelHasItsOwnBackground()
    {
        QImage image = plainImage({300, 100});
        QPainter painter(&image);
        painter.fillRect(0, 0, 150, 100, QColor(0x202530));
        const QImage text = renderedText(u"General"_s);
        painter.drawImage(20, 30, recolored(text, Qt::white, QColor(0x202530)));
        painter.drawImage(180, 30, text);
        const InkMap map = inkOf(image);
        const int left = marksIn(map, QRect(10, 30, 120, 40));
        const int right = marksIn(map, QRect(170, 30, 120, 40));
        QVERIFY(left > 50 && std::abs(left - right) < left / 4);
        // The border between them is no ink.
        QCOMPARE(marksIn(map, QRect(140, 0, 20, 100)), 0);
    }

    void framesAndRulesAreNotInk()
    {
        QImage image = plainImage({300, 120});
        QPainter painter(&image);
        painter.setPen(QColor(0xb0b0b0));
        painter.drawRect(10, 10, 200, 26);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(QColor(0x2f6fed));
        painter.drawRoundedRect(10, 50, 120, 28, 6, 6);
        painter.drawLine(0, 100, 300, 100);
        drawText(painter, {20, 14}, u"field"_s);
        drawText(painter, {40, 54}, u"button"_s, {.ink = Qt::white});
        const InkMap map = inkOf(image);
        QVERIFY(marksIn(map, QRect(18, 12, 60, 22)) > 50);
        QVERIFY(marksIn(map, QRect(38, 54, 70, 20)) > 50);
        QCOMPARE(marksIn(map, QRect(0, 5, 18, 110)), 0);
        QCOMPARE(marksIn(map, QRect(200, 5, 100, 110)), 0);
        QCOMPARE(marksIn(map, QRect(0, 90, 300, 20)), 0);
    }

    void framesThatAreCharactersAreKept()
    {
        const TextStyle style{.typeface = u"Noto Sans CJK SC"_s, .pixelSize = 32};
        const InkMap map = inkOf(renderedText(u"国"_s, style));
        // The outer stroke on the left.
        QVERIFY(marksIn(map, QRect(12, 12, 8, 48)) > 40);
    }

    void insideOfACharacterIsNotInk()
    {
        const InkMap map = inkOf(renderedText(u"o"_s, {.pixelSize = 96}));
        const QRect all = map.marks.rect();
        QRect box;
        for (int y = 0; y < all.height(); ++y) {
            for (int x = 0; x < all.width(); ++x) {
                if (map.marks.constScanLine(y)[x] != 0)
                    box |= QRect(x, y, 1, 1);
            }
        }
        const QRect inside(box.center() - QPoint(5, 5), QSize(10, 10));
        QVERIFY(marksIn(map, box) > 500);
        QCOMPARE(marksIn(map, inside), 0);
    }

    void plainPictureHasNoInk_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("one pixel") << QSize(1, 1);
        QTest::newRow("one row") << QSize(100, 1);
        QTest::newRow("one column") << QSize(1, 100);
        QTest::newRow("many") << QSize(100, 100);
    }
    void plainPictureHasNoInk()
    {
        QFETCH(const QSize, size);
        const InkMap map = inkOf(plainImage(size, Qt::gray));
        QCOMPARE(map.marks.size(), size);
        QCOMPARE(map.strength.size(), size);
        QCOMPARE(marksIn(map, map.marks.rect()), 0);
    }

    void gradientIsTreatedAsBackground()
    {
        QImage image = plainImage({400, 60});
        QPainter painter(&image);
        QLinearGradient gradient(0, 0, 400, 0);
        gradient.setColorAt(0, QColor(0x101010));
        gradient.setColorAt(1, QColor(0x505060));
        painter.fillRect(image.rect(), gradient);
        drawText(painter, {20, 20}, u"On a gradient ground"_s, {.ink = Qt::white});
        const InkMap map = inkOf(image);
        QVERIFY(marksIn(map, QRect(15, 15, 160, 30)) > 200);
        QCOMPARE(marksIn(map, QRect(200, 0, 200, 60)), 0);
    }
};

DRIFTBOX_TEST(TestInkMap, QGuiApplication)
#include "TestInkMap.moc"
