#include "clipboard/PictureDecoding.h"

#include "platform/PictureLimit.h"

#include <QtCore/QBuffer>
#include <QtGui/QImageReader>
#include <QtGui/QPainter>

namespace driftbox {

namespace {

/// White or black, whichever contrasts with the visible pixels of `image`.
QColor backgroundFor(const QImage& image)
{
    const QImage small = image.scaled(64, 64, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                             .convertToFormat(QImage::Format_ARGB32);
    qint64 lightness = 0;
    qint64 weight = 0;
    for (int y = 0; y < small.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(small.constScanLine(y));
        for (int x = 0; x < small.width(); ++x) {
            lightness += qint64{qGray(line[x])} * qAlpha(line[x]);
            weight += qAlpha(line[x]);
        }
    }
    return lightness > weight * 128 ? Qt::black : Qt::white;
}

QImage opaque(const QImage& image)
{
    if (!image.hasAlphaChannel())
        return image.convertToFormat(QImage::Format_RGB32);
    QImage result(image.size(), QImage::Format_RGB32);
    result.fill(backgroundFor(image));
    QPainter(&result).drawImage(0, 0, image);
    return result;
}

} // namespace

QImage decodedPicture(const QByteArray& bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.isEmpty() || qint64{size.width()} * size.height() > maxPicturePixels)
        return {};
    const QImage image = reader.read();
    return image.isNull() ? image : opaque(image);
}

} // namespace driftbox
