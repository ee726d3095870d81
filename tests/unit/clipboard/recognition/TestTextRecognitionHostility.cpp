#include "clipboard/OCREngine.h"
#include "support/Images.h"
#include "support/main/TestMain.h"
#include "unit/clipboard/recognition/RenderedText.h"

#include <random>
#include <thread>

#include <QtCore/QElapsedTimer>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

QImage noise(const QSize& size, int density)
{
    QImage image(size, QImage::Format_RGB32);
    std::minstd_rand random(7);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const bool isSet = static_cast<int>(random() % 100) < density;
            image.setPixel(x, y, isSet ? static_cast<QRgb>(random()) : qRgb(255, 255, 255));
        }
    }
    return image;
}

/// Lines that cross each other, as in a drawing.
QImage scrawl(const QSize& size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    std::minstd_rand random(3);
    const auto point = [&] {
        const auto x = static_cast<int>(random() % static_cast<unsigned>(size.width()));
        return QPoint(x, static_cast<int>(random() % static_cast<unsigned>(size.height())));
    };
    for (int i = 0; i < 400; ++i)
        painter.drawLine(point(), point());
    return image;
}

QImage manyWords(const QSize& size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    const QString line = u"Neither the time nor the place was chosen by those who came. "_s;
    for (int y = 4; y < size.height(); y += 16)
        drawText(painter, {4, y}, line.repeated(8), {.pixelSize = 11});
    return image;
}

} // namespace

/// Pictures without text, and ones that would take forever.
class TestTextRecognitionHostility : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void givesUpSoonOnPicturesWithoutText_data()
    {
        QTest::addColumn<QImage>("picture");
        QTest::newRow("noise") << noise({1280, 800}, 100);
        QTest::newRow("sparse noise") << noise({1280, 800}, 10);
        QTest::newRow("specks") << noise({1280, 800}, 1);
        QTest::newRow("a scrawl") << scrawl({1280, 800});
        QTest::newRow("one wide row") << noise({20'000, 2}, 50);
        QTest::newRow("one high column") << noise({2, 20'000}, 50);
    }
    void givesUpSoonOnPicturesWithoutText()
    {
        QFETCH(const QImage, picture);
        const QByteArray file = imageFile(picture, "png");
        QElapsedTimer timer;
        timer.start();
        const QString text = OCREngine().recognizeText(file);
        QVERIFY2(text.size() < 20, qPrintable(text));
        QVERIFY2(timer.elapsed() < 30'000, qPrintable(QString::number(timer.elapsed())));
    }

    void timeLimitStopsTheRecognition()
    {
        const OCREngine hasty(100ms);
        const QByteArray file = imageFile(manyWords({2560, 1600}), "png");
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(hasty.recognizeText(file), QString());
        // What is under way ends with its line; decoding and finding the lines have to be done.
        QVERIFY2(timer.elapsed() < 30'000, qPrintable(QString::number(timer.elapsed())));
    }

    void recognitionCanBeStoppedFromAnotherThread()
    {
        OCREngine engine;
        const QByteArray file = imageFile(manyWords({2560, 1600}), "png");
        QElapsedTimer timer;
        timer.start();
        const std::jthread stopping([&] { engine.stop(); });
        QCOMPARE(engine.recognizeText(file), QString());
        QVERIFY2(timer.elapsed() < 30'000, qPrintable(QString::number(timer.elapsed())));
    }

    void severalRecognitionsRunConcurrently()
    {
        const QByteArray one = imageFile(renderedText(u"Open the settings"_s), "png");
        const QByteArray other = imageFile(renderedText(u"Close the window"_s), "png");
        QString first;
        QString second;
        {
            const OCREngine engine(100s);
            const std::jthread reading([&] { first = engine.recognizeText(one); });
            second = engine.recognizeText(other);
        }
        QCOMPARE(first, u"Open the settings"_s);
        QCOMPARE(second, u"Close the window"_s);
    }
};

DRIFTBOX_TEST(TestTextRecognitionHostility, QGuiApplication)
#include "TestTextRecognitionHostility.moc"
