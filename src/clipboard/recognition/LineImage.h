#pragma once

#include "clipboard/recognition/InkMap.h"

#include <QtCore/QRect>

namespace driftbox {

/// The piece of text in `box` as a recognizer reads it best: black on white (Grayscale8), of full
/// contrast, of one size whatever the size in the picture, and with a margin.
[[nodiscard]] QImage lineImage(const InkMap& ink, const QRect& box);

} // namespace driftbox
