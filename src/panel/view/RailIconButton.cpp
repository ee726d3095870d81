#include "panel/view/RailIconButton.h"

#include "ui/controls/Tooltip.h"
#include "ui/theme/CardShape.h"
#include "ui/theme/Symbols.h"
#include "ui/theme/Theme.h"

#include <utility>

#include <QtGui/QPainter>

namespace driftbox {

namespace {

constexpr int side = 32;
constexpr int symbolSize = 15;
constexpr qreal railIconButtonCornerRadius = 6.0;
constexpr int hoverDurationMs = 150;

} // namespace

RailIconButton::RailIconButton(QString systemImage, const QString& help, QWidget* parent)
    : QAbstractButton(parent)
    , m_systemImage(std::move(systemImage))
{
    setCheckable(true);
    setFixedSize(side, side);
    // A click must not take the focus away from the page.
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(help);
    setTooltip(*this, help, Tooltip::Side::right);

    m_hover.setStartValue(0.0);
    m_hover.setEndValue(1.0);
    m_hover.setDuration(hoverDurationMs);
    m_hover.setEasingCurve(QEasingCurve::InOutQuad);
    connect(&m_hover, &QVariantAnimation::valueChanged, this, [this] { update(); });
}

QSize RailIconButton::sizeHint() const
{
    return {side, side};
}

void RailIconButton::setHovered(bool hovered)
{
    m_hover.setDirection(hovered ? QAbstractAnimation::Forward : QAbstractAnimation::Backward);
    if (m_hover.state() != QAbstractAnimation::Running)
        m_hover.start();
}

void RailIconButton::enterEvent(QEnterEvent* event)
{
    QAbstractButton::enterEvent(event);
    setHovered(true);
}

void RailIconButton::leaveEvent(QEvent* event)
{
    QAbstractButton::leaveEvent(event);
    setHovered(false);
}

// Hiding a button under the pointer sends no leave event.
void RailIconButton::hideEvent(QHideEvent* event)
{
    QAbstractButton::hideEvent(event);
    m_hover.stop();
    m_hover.setDirection(QAbstractAnimation::Forward);
    m_hover.setCurrentTime(0);
}

void RailIconButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);

    const QColor background =
        isActive() ? Theme::withOpacity(Theme::accent(), 0.15)
                   : Theme::withOpacity(Theme::hoverFill(), m_hover.currentValue().toReal());
    const QPainterPath shape = continuousRoundedRect(rect(), railIconButtonCornerRadius);
    painter.fillPath(shape, background);
    if (hasFocus()) {
        painter.setPen(QPen(Theme::accent(), 2.0));
        painter.drawPath(continuousRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1),
                                               railIconButtonCornerRadius));
    }
    Symbols::paint(painter, rect(), m_systemImage,
                   {.size = symbolSize,
                    .color = isActive() ? Theme::accent() : Theme::secondary(),
                    .weight = isActive() ? Symbols::Weight::semibold : Symbols::Weight::regular});
}

} // namespace driftbox
