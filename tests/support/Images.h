#pragma once

#include <QtCore/QByteArray>
#include <QtGui/QImage>

namespace driftbox {

/// A picture in which neighboring pixels always differ.
[[nodiscard]] QImage colorfulImage(const QSize& size);

/// Encodes an image; `kind` is a format name of QImageWriter.
[[nodiscard]] QByteArray imageFile(const QImage& image, const char* kind);

/// Encodes a red picture; `kind` is a format name of QImageWriter.
[[nodiscard]] QByteArray picture(const QSize& size, const char* kind = "png");

/// A few hundred bytes that claim to be a PNG file of this size, with correct checksums.
[[nodiscard]] QByteArray pngThatClaims(const QSize& size);

} // namespace driftbox
