#pragma once

#include <QtGui/QImage>

namespace driftbox {

/// What is written in a picture, freed of the grounds on which it is written.
///
/// A ground may be light or dark, and a picture may have many: panels, buttons, selected rows.
/// Rules, frames and large shapes are left out.
struct InkMap
{
    /// Grayscale8: how much a pixel differs from the ground around it; 0 where nothing is written.
    QImage strength;

    /// Grayscale8: 255 where a pixel belongs to a mark, else 0.
    QImage marks;
};

/// The ink of `picture`, which is opaque and of the format RGB32. Of the same size.
[[nodiscard]] InkMap inkOf(const QImage& picture);

} // namespace driftbox
