#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace driftbox {

struct ConvertedImage
{
    QByteArray png;  ///< empty when the image was refused
    QString refusal; ///< why it was refused, as the end of a log line; empty when it was not
};

/// Images as other programs hand them over, made into PNG files. Any thread; takes its time.
namespace ImageConversion {

/// Decodes the whole image and gives a PNG file of it: the very same bytes when they are one. The
/// kind is told from the content. Refused are what does not decode completely, any kind that is not
/// a usual bitmap, and more pixels than `maxPicturePixels`, before memory is taken for them.
[[nodiscard]] ConvertedImage toPng(const QByteArray& image);

} // namespace ImageConversion

} // namespace driftbox
