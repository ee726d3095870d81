#pragma once

#include <vector>

#include <QtCore/QObject>
#include <QtCore/QPointF>
#include <QtCore/QRect>
#include <QtCore/QRectF>

namespace driftbox {

/// One screen. `frame` and `visibleFrame` are in screen space: points, origin at the bottom left
/// corner of the primary screen, y pointing up, so that a rectangle's x and y are its lower left
/// corner.
struct Screen
{
    QRectF frame;
    QRectF visibleFrame; ///< without panels and docks
    QRect deviceFrame;   ///< in device pixels of the whole desktop, y pointing down
    qreal scale = 1.0;   ///< device pixels per point
};

/// The screens of the session. Main thread only.
class Screens : public QObject
{
    Q_OBJECT

public:
    /// The primary screen first. Empty when there is none.
    [[nodiscard]] virtual std::vector<Screen> screens() const = 0;

    /// The pointer's position in screen space.
    [[nodiscard]] virtual QPointF mouseLocation() const = 0;

protected:
    using QObject::QObject;
};

} // namespace driftbox
