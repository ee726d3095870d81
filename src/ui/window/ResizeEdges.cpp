#include "ui/window/ResizeEdges.h"

namespace driftbox::ResizeEdges {

Qt::Edges at(QPoint position, const QRect& frame, int thickness, int cornerLength)
{
    if (frame.adjusted(thickness, thickness, -thickness, -thickness).contains(position))
        return {};
    const QRect middle = frame.adjusted(cornerLength, cornerLength, -cornerLength, -cornerLength);
    Qt::Edges edges;
    edges.setFlag(Qt::LeftEdge, position.x() < middle.left());
    edges.setFlag(Qt::RightEdge, position.x() > middle.right());
    edges.setFlag(Qt::TopEdge, position.y() < middle.top());
    edges.setFlag(Qt::BottomEdge, position.y() > middle.bottom());
    return edges;
}

Qt::CursorShape cursor(Qt::Edges edges)
{
    if (edges == (Qt::LeftEdge | Qt::TopEdge) || edges == (Qt::RightEdge | Qt::BottomEdge))
        return Qt::SizeFDiagCursor;
    if (edges == (Qt::RightEdge | Qt::TopEdge) || edges == (Qt::LeftEdge | Qt::BottomEdge))
        return Qt::SizeBDiagCursor;
    if (edges & (Qt::LeftEdge | Qt::RightEdge))
        return Qt::SizeHorCursor;
    return edges ? Qt::SizeVerCursor : Qt::ArrowCursor;
}

} // namespace driftbox::ResizeEdges
