#pragma once

#include <QtCore/QtGlobal>

namespace driftbox {

/// The maximum number of pixels for which a picture of another program is decoded: more than two 5K
/// screens side by side or one 8K screen. Decoded they take 128 MiB, beyond which the toolkit
/// refuses with a warning.
inline constexpr qint64 maxPicturePixels = 33'554'432;

} // namespace driftbox
