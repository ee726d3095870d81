#pragma once

#include <QtCore/QByteArray>
#include <QtGui/QImage>

namespace driftbox {

/// The first picture in the bytes of an image file, upright and opaque (RGB32), for reading. Null
/// when they are no picture, and when it is larger than any screen: decoding is then not tried.
[[nodiscard]] QImage decodedPicture(const QByteArray& bytes);

} // namespace driftbox
