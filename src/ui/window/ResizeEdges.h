#pragma once

#include <QtCore/QPoint>
#include <QtCore/QRect>

/// Where a window that draws its own frame is taken hold of to be resized.
namespace driftbox::ResizeEdges {

/// The edges of `frame` that are dragged from `position`, inside the frame or around it: none
/// further inside than `thickness`, two within `cornerLength` of a corner. Lengths in points.
[[nodiscard]] Qt::Edges at(QPoint position, const QRect& frame, int thickness, int cornerLength);

/// What the pointer looks like over these edges; an arrow where there is none.
[[nodiscard]] Qt::CursorShape cursor(Qt::Edges edges);

} // namespace driftbox::ResizeEdges
