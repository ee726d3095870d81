#include "ui/controls/SmoothScroller.h"

#include <algorithm>

#include <QtGui/QWheelEvent>
#include <QtWidgets/QScrollBar>

namespace driftbox {

namespace {

constexpr int pointsPerNotch = 72;
constexpr int scrollDurationMs = 140;
constexpr int notch = QWheelEvent::DefaultDeltasPerStep;

} // namespace

SmoothScroller::SmoothScroller(QScrollBar& scrollBar)
    : QObject(&scrollBar)
    , m_scrollBar(scrollBar)
{
    m_animation.setDuration(scrollDurationMs);
    m_animation.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_animation, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& value) { m_scrollBar.setValue(value.toInt()); });
}

void SmoothScroller::handle(QWheelEvent& event)
{
    const int pixels = event.pixelDelta().y();
    const int angle = event.angleDelta().y();
    if (pixels == 0 && angle != 0 && angle % notch == 0) {
        scrollBy(-angle / notch * pointsPerNotch);
    } else {
        stop();
        const int distance = pixels != 0 ? pixels : angle * pointsPerNotch / notch;
        m_scrollBar.setValue(m_scrollBar.value() - distance);
    }
    event.accept();
}

void SmoothScroller::scrollBy(int distance)
{
    const bool isScrolling = m_animation.state() == QAbstractAnimation::Running;
    const int start = m_scrollBar.value();
    const int from = isScrolling ? m_animation.endValue().toInt() : start;
    stop();
    m_animation.setStartValue(start);
    m_animation.setEndValue(
        std::clamp(from + distance, m_scrollBar.minimum(), m_scrollBar.maximum()));
    m_animation.start();
}

} // namespace driftbox
