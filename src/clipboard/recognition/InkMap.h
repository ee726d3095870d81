#pragma once

#include <QtGui/QImage>

namespace driftbox {

/// The text of a picture, separated from its background.
///
/// A picture may have many backgrounds, light and dark: panels, buttons, selected rows. Rules,
/// frames and large shapes are excluded.
struct InkMap
{
    /// Format_Grayscale8: a pixel's difference from the background around it; 0 if it is not ink.
    QImage strength;

    /// Format_Grayscale8: 255 if a pixel belongs to a mark, else 0.
    QImage marks;
};

/// The ink map of `picture`, which must be opaque (Format_RGB32); of the same size.
[[nodiscard]] InkMap inkOf(const QImage& picture);

} // namespace driftbox
