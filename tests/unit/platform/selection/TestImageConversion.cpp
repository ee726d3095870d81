#include "platform/selection/ImageConversion.h"
#include "support/Images.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestImageConversion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pngFileIsKeptUnchanged()
    {
        const QByteArray file = imageFile(colorfulImage({40, 30}), "png");
        const ConvertedImage converted = ImageConversion::toPng(file);

        QVERIFY2(converted.refusal.isEmpty(), qUtf8Printable(converted.refusal));
        QCOMPARE(converted.png, file);
    }

    void otherFormatsAreConvertedToPng_data()
    {
        QTest::addColumn<QByteArray>("kind");
        QTest::addColumn<bool>("isLossless");
        QTest::newRow("bmp") << QByteArray("bmp") << true;
        QTest::newRow("tiff") << QByteArray("tiff") << true;
        QTest::newRow("jpeg") << QByteArray("jpeg") << false;
        QTest::newRow("webp") << QByteArray("webp") << false;
    }

    void otherFormatsAreConvertedToPng()
    {
        QFETCH(QByteArray, kind);
        QFETCH(bool, isLossless);
        const QImage image = colorfulImage({40, 30});
        const ConvertedImage converted = ImageConversion::toPng(imageFile(image, kind.constData()));

        QVERIFY2(converted.refusal.isEmpty(), qUtf8Printable(converted.refusal));
        const QImage decoded = QImage::fromData(converted.png, "PNG");
        QCOMPARE(decoded.size(), image.size());
        if (isLossless)
            QCOMPARE(decoded.convertToFormat(image.format()), image);
    }

    void transparencyIsKept()
    {
        QImage image(8, 8, QImage::Format_ARGB32);
        image.fill(qRgba(10, 20, 30, 40));
        const QImage decoded =
            QImage::fromData(ImageConversion::toPng(imageFile(image, "tiff")).png, "PNG");

        QCOMPARE(qAlpha(decoded.pixel(3, 3)), 40);
    }

    void undecodableImageIsRejected_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QStringList>("warnings"); // of the decoders
        const QByteArray png = imageFile(colorfulImage({200, 200}), "png");
        const QByteArray jpeg = imageFile(colorfulImage({200, 200}), "jpeg");
        const QByteArray bmp = imageFile(colorfulImage({200, 200}), "bmp");
        QByteArray damaged = png;
        damaged[damaged.size() / 2] = static_cast<char>(~damaged.at(damaged.size() / 2));

        const auto row = [](const char* name, const QByteArray& file,
                            const QStringList& warnings = {}) {
            QTest::newRow(name) << file << warnings;
        };
        row("nothing", {});
        row("garbage", "This is no image but says it is one.");
        row("zeros", QByteArray(100'000, '\0'));
        row("only a signature", png.left(8));
        row("half a header", png.left(20));
        row("half a file", png.left(png.size() / 2));
        row("all but the last byte", png.chopped(1));
        row("all but the end", png.chopped(12));
        row("a damaged byte", damaged);
        row("half a header, BMP", bmp.left(30));
        row("only a signature, JPEG", jpeg.left(4),
            {u"Corrupt JPEG data: 1 extraneous bytes before marker 0xd9"_s,
             u"JPEG datastream contains no image"_s});
        row("only a signature, TIFF", QByteArray("II*\0\xff\xff\xff\x7f", 8),
            {u"QBuffer::seek: Invalid pos: 2147483647"_s});
        row("only a signature, WebP", "RIFF\xff\xff\xff\xffWEBPVP8 ");
        row("only a signature, GIF", "GIF89a");
        row("a drawing", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>");
    }

    void undecodableImageIsRejected()
    {
        QFETCH(QByteArray, file);
        QFETCH(QStringList, warnings);
        for (const QString& warning : warnings)
            QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
        const ConvertedImage converted = ImageConversion::toPng(file);

        QVERIFY(!converted.refusal.isEmpty());
        QVERIFY(converted.png.isEmpty());
    }

    void imageAboveThePixelLimitIsRejected_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("a bomb") << QSize(30'000, 30'000);
        QTest::newRow("a line that overflows") << QSize(0x7fffffff, 1);
        QTest::newRow("one row too many") << QSize(8192, 4097);
    }

    void imageAboveThePixelLimitIsRejected()
    {
        QFETCH(QSize, size);
        const QByteArray bomb = pngThatClaims(size);
        QVERIFY(bomb.size() < 1'000);
        const ConvertedImage converted = ImageConversion::toPng(bomb);

        QVERIFY(!converted.refusal.isEmpty());
        QVERIFY(converted.png.isEmpty());
    }

    void largestScreenshotsAreAccepted()
    {
        QImage screens(10'240, 2'880, QImage::Format_RGB32);
        screens.fill(Qt::darkCyan);
        const QByteArray file = imageFile(screens, "png");

        QCOMPARE(ImageConversion::toPng(file).png, file);
    }
};

DRIFTBOX_TEST(TestImageConversion, QCoreApplication)
#include "TestImageConversion.moc"
