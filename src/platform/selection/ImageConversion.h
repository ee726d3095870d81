#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace driftbox {

struct ConvertedImage
{
    QByteArray png;  ///< empty when the image was refused
    QString refusal; ///< the reason, as the end of a log line; empty when not refused
};

/// Converts images of other programs to PNG. Thread-safe; may take long.
namespace ImageConversion {

/// Decodes the whole image and returns it as a PNG file; PNG input is returned unchanged. The
/// format is detected from the content. Refuses images that do not decode completely, formats other
/// than the common bitmap formats and, before allocating memory for them, images of more than
/// `maxPicturePixels` pixels.
[[nodiscard]] ConvertedImage toPng(const QByteArray& image);

} // namespace ImageConversion

} // namespace driftbox
