#pragma once

#include "clipboard/recognition/InkMap.h"

#include <QtCore/QRect>

namespace driftbox {

/// Renders the piece of text in `box` for the recognizer: black on white (Format_Grayscale8), with
/// full contrast and a margin, scaled to a fixed text height.
[[nodiscard]] QImage lineImage(const InkMap& ink, const QRect& box);

} // namespace driftbox
