#pragma once

#include <QtCore/QVariantAnimation>

class QScrollBar;
class QWheelEvent;

namespace driftbox {

/// Scrolls by the wheel: a notch of a mouse's wheel glides, a finger on a touchpad is followed at
/// once.
class SmoothScroller : public QObject
{
    Q_OBJECT

public:
    /// `scrollBar` counts points.
    explicit SmoothScroller(QScrollBar& scrollBar);

    void handle(QWheelEvent& event);
    /// Ends a gliding where it is.
    void stop() { m_glide.stop(); }

private:
    void glideBy(int distance);

    QScrollBar& m_scrollBar;
    QVariantAnimation m_glide;
};

} // namespace driftbox
