#include "clipboard/PictureDecoding.h"
#include "support/Images.h"
#include "support/main/TestMain.h"

#include <QtCore/QBuffer>
#include <QtGui/QImageWriter>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

/// A picture of 4x2 pixels, black in its left half, whose camera was turned.
QByteArray turnedPicture(QImageIOHandler::Transformations turned)
{
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(Qt::white);
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 20; ++x)
            image.setPixel(x, y, qRgb(0, 0, 0));
    }
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpeg");
    writer.setTransformation(turned);
    writer.write(image);
    return buffer.data();
}

QByteArray inkOnNothing(Qt::GlobalColor ink)
{
    QImage image(100, 20, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int x = 10; x < 60; ++x)
        image.setPixelColor(x, 10, ink);
    return imageFile(image, "png");
}

} // namespace

class TestPictureDecoding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void decodedPictureIsOpaqueAndComplete()
    {
        const QImage image = colorfulImage({37, 21});
        const QImage decoded = decodedPicture(imageFile(image, "png"));
        QCOMPARE(decoded.format(), QImage::Format_RGB32);
        QCOMPARE(decoded, image);
    }

    void orientationIsApplied_data()
    {
        QTest::addColumn<int>("turned");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QPoint>("black");
        QTest::newRow("as it is") << int(QImageIOHandler::TransformationNone) << QSize(40, 20)
                                  << QPoint(5, 10);
        QTest::newRow("upside down")
            << int(QImageIOHandler::TransformationRotate180) << QSize(40, 20) << QPoint(35, 10);
        QTest::newRow("on its side")
            << int(QImageIOHandler::TransformationRotate90) << QSize(20, 40) << QPoint(10, 5);
        QTest::newRow("on its other side")
            << int(QImageIOHandler::TransformationRotate270) << QSize(20, 40) << QPoint(10, 35);
    }
    void orientationIsApplied()
    {
        QFETCH(const int, turned);
        QFETCH(const QSize, size);
        QFETCH(const QPoint, black);
        const QImage decoded =
            decodedPicture(turnedPicture(QImageIOHandler::Transformations(turned)));
        QCOMPARE(decoded.size(), size);
        QVERIFY(qGray(decoded.pixel(black)) < 20);
        const QPoint opposite(size.width() - 1 - black.x(), size.height() - 1 - black.y());
        QVERIFY(qGray(decoded.pixel(opposite)) > 235);
    }

    void transparentPictureGetsAContrastingBackground()
    {
        QCOMPARE(decodedPicture(inkOnNothing(Qt::black)).pixel(0, 0), qRgb(255, 255, 255));
        QCOMPARE(decodedPicture(inkOnNothing(Qt::white)).pixel(0, 0), qRgb(0, 0, 0));
    }

    void bytesThatAreNotAPictureGiveNull_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("text") << QByteArray("P");
        QTest::newRow("larger than any screen") << pngThatClaims({20'000, 20'000});
    }
    void bytesThatAreNotAPictureGiveNull()
    {
        QFETCH(const QByteArray, bytes);
        QVERIFY(decodedPicture(bytes).isNull());
    }

    void truncatedPictureIsRejected()
    {
        const QByteArray whole = imageFile(colorfulImage({200, 200}), "png");
        QVERIFY(decodedPicture(whole.first(whole.size() / 2)).isNull());
    }
};

DRIFTBOX_TEST(TestPictureDecoding, QCoreApplication)
#include "TestPictureDecoding.moc"
