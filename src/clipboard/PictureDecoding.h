#pragma once

#include <QtCore/QByteArray>
#include <QtGui/QImage>

namespace driftbox {

/// Decodes the first picture of an image file for text recognition: upright and opaque
/// (Format_RGB32). Null if `bytes` are not a picture or it has more than `maxPicturePixels` pixels.
[[nodiscard]] QImage decodedPicture(const QByteArray& bytes);

} // namespace driftbox
