#pragma once

#include <QtCore/QByteArray>
#include <QtGui/QImage>

namespace driftbox {

/// A picture in which no two neighboring pixels are alike.
[[nodiscard]] QImage colorfulImage(const QSize& size);

/// The file of an image, of a kind as QImageWriter names it.
[[nodiscard]] QByteArray imageFile(const QImage& image, const char* kind);

/// A few hundred bytes that claim to be a PNG file of that size, with honest check sums.
[[nodiscard]] QByteArray pngThatClaims(const QSize& size);

} // namespace driftbox
