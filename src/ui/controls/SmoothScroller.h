#pragma once

#include <QtCore/QVariantAnimation>

class QScrollBar;
class QWheelEvent;

namespace driftbox {

/// Handles wheel events: scrolls smoothly for the notches of a mouse wheel and follows a touchpad
/// immediately.
class SmoothScroller : public QObject
{
    Q_OBJECT

public:
    /// `scrollBar`, whose values are in points, owns the scroller.
    explicit SmoothScroller(QScrollBar& scrollBar);

    void handle(QWheelEvent& event);
    /// Stops a running animation at its current position.
    void stop() { m_animation.stop(); }

private:
    void scrollBy(int distance);

    QScrollBar& m_scrollBar;
    QVariantAnimation m_animation;
};

} // namespace driftbox
