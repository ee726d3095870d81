#include "support/Images.h"

#include <QtCore/QBuffer>
#include <QtCore/QtEndian>
#include <QtGui/QImageWriter>

namespace driftbox {

namespace {

quint32 crc32(const QByteArray& bytes)
{
    quint32 crc = 0xffffffff;
    for (const char byte : bytes) {
        crc ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xedb88320 : 0);
    }
    return ~crc;
}

QByteArray bigEndian(quint32 number)
{
    QByteArray bytes(4, Qt::Uninitialized);
    qToBigEndian(number, bytes.data());
    return bytes;
}

QByteArray chunk(const QByteArray& type, const QByteArray& data)
{
    return bigEndian(static_cast<quint32>(data.size())) + type + data +
           bigEndian(crc32(type + data));
}

} // namespace

QImage colorfulImage(const QSize& size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, qRgb((x * 7) & 0xff, (y * 13) & 0xff, (x * y) & 0xff));
    }
    return image;
}

QByteArray imageFile(const QImage& image, const char* kind)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!QImageWriter(&buffer, kind).write(image))
        qFatal("Cannot write an image of the kind %s", kind);
    return buffer.data();
}

QByteArray picture(const QSize& size, const char* kind)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
    return imageFile(image, kind);
}

QByteArray pngThatClaims(const QSize& size)
{
    const QByteArray header = bigEndian(static_cast<quint32>(size.width())) +
                              bigEndian(static_cast<quint32>(size.height())) +
                              QByteArray("\x08\x06\x00\x00\x00", 5);
    // qCompress prepends the size, which is not part of the PNG format.
    const QByteArray pixels = qCompress(QByteArray(100'000, '\0'), 9).mid(4);
    return QByteArray("\x89PNG\r\n\x1a\n") + chunk("IHDR", header) + chunk("IDAT", pixels) +
           chunk("IEND", {});
}

} // namespace driftbox
