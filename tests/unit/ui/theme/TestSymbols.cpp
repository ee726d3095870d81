#include "support/main/TestMain.h"
#include "ui/theme/Symbols.h"

#include <QtCore/QDir>
#include <QtGui/QPainter>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

/// How much of the picture is covered, as a number of opaque pixels.
double ink(const QPixmap& pixmap)
{
    const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
    double sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            sum += qAlpha(image.pixel(x, y)) / 255.0;
    }
    return sum;
}

QStringList allSymbols()
{
    return QDir(u":/symbols"_s).entryList();
}

} // namespace

class TestSymbols : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everySymbolIsDrawn()
    {
        QVERIFY(allSymbols().contains(u"doc.on.clipboard"_s));
        for (const QString& name : allSymbols()) {
            const QPixmap pixmap = Symbols::pixmap(name, {.size = 15, .color = Qt::black}, 1.0);
            QCOMPARE(pixmap.size(), QSize(16, 16));
            QVERIFY2(ink(pixmap) > 10.0, qUtf8Printable(name));
        }
    }

    void symbolHasTheColorAskedFor()
    {
        const QColor orange(0xf0, 0x86, 0x00);
        const QImage image =
            Symbols::pixmap(u"pin.fill"_s, {.size = 30, .color = orange}, 1.0).toImage();
        int opaque = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y).alpha() == 255) {
                    ++opaque;
                    QCOMPARE(image.pixelColor(x, y), orange);
                }
            }
        }
        QVERIFY(opaque > 50);
    }

    void translucentColorsStayTranslucent()
    {
        const QColor faint(0, 0, 0, 51);
        const QImage image =
            Symbols::pixmap(u"pin.fill"_s,
                            {.size = 30, .color = faint, .weight = Symbols::Weight::bold}, 1.0)
                .toImage();
        int strongest = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                strongest = std::max(strongest, qAlpha(image.pixel(x, y)));
        }
        QCOMPARE(strongest, 51);
    }

    void pixelsFollowTheScaleOfTheScreen()
    {
        const QPixmap pixmap = Symbols::pixmap(u"trash"_s, {.size = 15, .color = Qt::black}, 2.0);
        QCOMPARE(pixmap.size(), QSize(32, 32));
        QCOMPARE(pixmap.devicePixelRatio(), 2.0);
        QCOMPARE(pixmap.deviceIndependentSize(), QSizeF(16, 16));
    }

    void heavierWeightsHaveMoreInk()
    {
        const auto inkAt = [](Symbols::Weight weight) {
            return ink(Symbols::pixmap(u"xmark"_s,
                                       {.size = 15, .color = Qt::black, .weight = weight}, 2.0));
        };
        QVERIFY(inkAt(Symbols::Weight::semibold) > inkAt(Symbols::Weight::regular));
        QVERIFY(inkAt(Symbols::Weight::bold) > inkAt(Symbols::Weight::semibold));
    }

    void secondPixmapComesFromTheCache()
    {
        const Symbols::Style style{.size = 15, .color = Qt::red};
        const auto first = Symbols::pixmap(u"trash"_s, style, 1.0).toImage().cacheKey();
        QCOMPARE(Symbols::pixmap(u"trash"_s, style, 1.0).toImage().cacheKey(), first);
    }

    void pixmapInUseStaysInTheCache()
    {
        const auto used = [] {
            return Symbols::pixmap(u"trash"_s, {.size = 15, .color = Qt::red}, 1.0)
                .toImage()
                .cacheKey();
        };
        const auto first = used();
        for (int shade = 0; shade < 1000; ++shade) {
            (void)Symbols::pixmap(u"photo"_s, {.size = 15, .color = QColor::fromRgb(shade)}, 1.0);
            QCOMPARE(used(), first);
        }
    }

    void unknownSymbolIsNullAndLogged_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("unknown") << u"no.such.symbol"_s;
        QTest::newRow("empty") << QString();
        QTest::newRow("elsewhere") << u"../qt/etc/qt.conf"_s;
    }
    void unknownSymbolIsNullAndLogged()
    {
        QFETCH(QString, name);
        QTest::ignoreMessage(QtWarningMsg, qPrintable(u"There is no symbol %1"_s.arg(name)));
        QVERIFY(Symbols::pixmap(name, {.size = 15, .color = Qt::black}, 1.0).isNull());
    }

    void paintingCentersOnWholePixels()
    {
        QImage canvas(41, 41, QImage::Format_ARGB32_Premultiplied);
        canvas.fill(Qt::transparent);
        QPainter painter(&canvas);
        const Symbols::Style style{.size = 15, .color = Qt::black};
        Symbols::paint(painter, canvas.rect(), u"photo"_s, style);
        painter.end();

        const QImage symbol = Symbols::pixmap(u"photo"_s, style, 1.0).toImage();
        // Half of 41 - 16 is rounded to a whole pixel, so nothing is smeared over two.
        QCOMPARE(canvas.copy(13, 13, 16, 16).convertToFormat(symbol.format()), symbol);
    }

    void iconsSupportSeveralScales()
    {
        const QIcon icon = Symbols::icon(u"gearshape"_s, {.size = 15, .color = Qt::black});
        QCOMPARE(icon.pixmap(QSize(16, 16), 1.0).size(), QSize(16, 16));
        QCOMPARE(icon.pixmap(QSize(16, 16), 2.0).size(), QSize(32, 32));
    }
};

DRIFTBOX_TEST(TestSymbols, QApplication)
#include "TestSymbols.moc"
