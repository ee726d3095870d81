#pragma once

#include <QtCore/QtGlobal>

namespace driftbox {

/// The most pixels that a picture of another program may have to be decoded: more than two 5K
/// screens side by side or one of 8K. They take 128 MiB, beyond which the toolkit refuses with a
/// warning.
inline constexpr qint64 maxPicturePixels = 33'554'432;

} // namespace driftbox
