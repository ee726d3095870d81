#include "settings/view/SwatchButton.h"

#include "ui/controls/Tooltip.h"
#include "ui/theme/Theme.h"

#include <QtGui/QPainter>

namespace driftbox {

namespace {

constexpr int diameter = 20;
constexpr int outlineMargin = 4; // for the outline and the focus ring
constexpr qreal selectedOutlineWidth = 2.0;
constexpr qreal outlineWidth = 0.5;
constexpr qreal swatchOutlineOpacity = 0.1;

} // namespace

SwatchButton::SwatchButton(NoteColor color, QWidget* parent)
    : QRadioButton(parent)
    , m_color(color)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleName(displayName(color));
    setTooltip(*this, displayName(color));
}

QSize SwatchButton::sizeHint() const
{
    return {diameter + 2 * outlineMargin, diameter + 2 * outlineMargin};
}

bool SwatchButton::hitButton(const QPoint& position) const
{
    return rect().contains(position);
}

void SwatchButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF center = QRectF(rect()).center();
    constexpr qreal radius = diameter / 2.0;
    if (isChecked())
        painter.setPen(QPen(Theme::accent(), selectedOutlineWidth));
    else
        painter.setPen(QPen(Theme::withOpacity(Qt::black, swatchOutlineOpacity), outlineWidth));
    painter.setBrush(Theme::noteSwatch(m_color));
    painter.drawEllipse(center, radius, radius);
    if (hasFocus()) {
        painter.setPen(QPen(Theme::withOpacity(Theme::accent(), 0.5), 1.5));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(center, radius + outlineMargin - 1.0, radius + outlineMargin - 1.0);
    }
}

} // namespace driftbox
