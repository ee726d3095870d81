#pragma once

#include <QtCore/QPoint>
#include <QtCore/QRect>

/// Hit testing for resizing windows that draw their own frame.
namespace driftbox::ResizeEdges {

/// The edges of `frame` that are resized by dragging from `position`, which is inside the frame or
/// around it: none further inside than `thickness`, two within `cornerLength` of a corner. Lengths
/// are in points.
[[nodiscard]] Qt::Edges at(QPoint position, const QRect& frame, int thickness, int cornerLength);

/// The mouse cursor for these edges; an arrow if there are none.
[[nodiscard]] Qt::CursorShape cursor(Qt::Edges edges);

} // namespace driftbox::ResizeEdges
