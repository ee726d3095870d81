#include "platform/selection/ImageConversion.h"

#include "platform/PictureLimit.h"

#include <array>

#include <QtCore/QBuffer>
#include <QtCore/QtEndian>
#include <QtGui/QImageReader>
#include <QtGui/QImageWriter>

using namespace Qt::StringLiterals;

namespace driftbox::ImageConversion {

namespace {

// About zlib level 2: ten times as fast as the default on screenshots, at 10% more bytes.
constexpr int writingQuality = 80;

struct Kind
{
    QByteArrayView magic;
    qsizetype offset;
    const char* name;
};

constexpr auto pngName = "png";

// An explicit format keeps the reader from trying, and loading, its other decoders.
const char* kindOf(const QByteArray& image)
{
    static constexpr std::array kinds{
        Kind{"\x89PNG\r\n\x1a\n", 0, pngName},
        Kind{"BM", 0, "bmp"},
        Kind{"\xff\xd8\xff", 0, "jpeg"},
        Kind{"GIF8", 0, "gif"},
        Kind{"WEBP", 8, "webp"},
        Kind{QByteArrayView("II*\0", 4), 0, "tiff"},
        Kind{QByteArrayView("MM\0*", 4), 0, "tiff"},
    };
    for (const Kind& kind : kinds) {
        if (image.size() > kind.offset &&
            QByteArrayView(image).sliced(kind.offset).startsWith(kind.magic))
            return kind.name;
    }
    return nullptr;
}

// The decoder accepts a file without its end when it has all pixels. A chunk consists of a length,
// a type, that many bytes of data and a checksum.
bool hasEndOfPng(const QByteArray& file)
{
    constexpr qsizetype headSize = 8;
    constexpr qsizetype checksumSize = 4;
    qsizetype position = headSize; // as long as the signature
    while (file.size() - position >= headSize + checksumSize) {
        const auto dataSize = qFromBigEndian<quint32>(file.constData() + position);
        const QByteArrayView type = QByteArrayView(file).sliced(position + 4, 4);
        if (type == "IEND")
            return true;
        position += headSize + qsizetype(dataSize) + checksumSize;
    }
    return false;
}

ConvertedImage refuse(const QString& why)
{
    return {{}, why};
}

} // namespace

ConvertedImage toPng(const QByteArray& image)
{
    const char* kind = kindOf(image);
    if (kind == nullptr)
        return refuse(u"not an image of a known kind"_s);
    const bool isPng = QByteArrayView(kind) == pngName;
    if (isPng && !hasEndOfPng(image))
        return refuse(u"the image is incomplete"_s);

    QBuffer source;
    source.setData(image);
    source.open(QIODevice::ReadOnly);
    QImageReader reader(&source, kind);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.isEmpty())
        return refuse(u"the image does not decode"_s);
    if (qint64(size.width()) * size.height() > maxPicturePixels)
        return refuse(u"the image has too many pixels"_s);
    const QImage decoded = reader.read();
    if (decoded.isNull())
        return refuse(u"the image does not decode"_s);
    if (isPng)
        return {image, {}};

    QBuffer target;
    target.open(QIODevice::WriteOnly);
    QImageWriter writer(&target, pngName);
    writer.setQuality(writingQuality);
    if (!writer.write(decoded))
        return refuse(u"the image cannot be written as PNG"_s);
    return {target.data(), {}};
}

} // namespace driftbox::ImageConversion
