#include "ui/controls/OverlayScrollBar.h"

#include "ui/theme/Theme.h"

#include <algorithm>

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QScrollBar>

namespace driftbox {

namespace {

constexpr qreal margin = 2.0; // at the ends and the right edge
constexpr qreal slimWidth = 4.0;
constexpr qreal wideWidth = 6.0;
constexpr qreal overlayScrollBarMinThumb = 28.0;
constexpr qreal restingOpacity = 0.22;
constexpr qreal activeOpacity = 0.45;

} // namespace

OverlayScrollBar::OverlayScrollBar(QScrollBar& scrollBar, QWidget* parent)
    : QWidget(parent)
    , m_scrollBar(scrollBar)
{
    setFixedWidth(thickness);
    setVisible(m_scrollBar.maximum() > 0);
    connect(&m_scrollBar, &QScrollBar::valueChanged, this, [this] { update(); });
    connect(&m_scrollBar, &QScrollBar::rangeChanged, this, [this](int minimum, int maximum) {
        setVisible(maximum > minimum);
        update();
    });
}

void OverlayScrollBar::placeIn(const QRect& area)
{
    setGeometry(area.right() + 1 - thickness, area.top(), thickness, area.height());
    raise();
}

qreal OverlayScrollBar::trackLength() const
{
    return height() - 2 * margin;
}

QRectF OverlayScrollBar::thumb() const
{
    const int range = m_scrollBar.maximum();
    const qreal contentLength = range + m_scrollBar.pageStep();
    const qreal length =
        std::min(trackLength(), std::max(overlayScrollBarMinThumb,
                                         trackLength() * m_scrollBar.pageStep() / contentLength));
    const qreal top =
        range > 0 ? (trackLength() - length) * m_scrollBar.value() / qreal(range) : 0.0;
    const qreal thumbWidth = underMouse() || m_grip ? wideWidth : slimWidth;
    return {width() - margin - thumbWidth, margin + top, thumbWidth, length};
}

void OverlayScrollBar::enterEvent(QEnterEvent*)
{
    update();
}
void OverlayScrollBar::leaveEvent(QEvent*)
{
    update();
}

void OverlayScrollBar::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QRectF area = thumb();
    const qreal y = event->position().y();
    const bool isOnThumb = y >= area.top() && y < area.bottom();
    m_grip = isOnThumb ? y - area.top() : area.height() / 2;
    dragTo(y - *m_grip);
}

void OverlayScrollBar::mouseMoveEvent(QMouseEvent* event)
{
    if (m_grip)
        dragTo(event->position().y() - *m_grip);
}

void OverlayScrollBar::mouseReleaseEvent(QMouseEvent*)
{
    m_grip.reset();
    update();
}

void OverlayScrollBar::wheelEvent(QWheelEvent* event)
{
    event->ignore(); // handled by the scrolled widget
}

void OverlayScrollBar::dragTo(qreal thumbTop)
{
    const qreal space = trackLength() - thumb().height();
    if (space > 0)
        m_scrollBar.setValue(qRound((thumbTop - margin) / space * m_scrollBar.maximum()));
    update();
}

void OverlayScrollBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const bool isActive = underMouse() || m_grip;
    painter.setBrush(Theme::withOpacity(palette().color(QPalette::Active, QPalette::WindowText),
                                        isActive ? activeOpacity : restingOpacity));
    const QRectF area = thumb();
    painter.drawRoundedRect(area, area.width() / 2, area.width() / 2);
}

} // namespace driftbox
