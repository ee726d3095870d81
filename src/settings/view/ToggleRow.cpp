#include "settings/view/ToggleRow.h"

#include "settings/view/FormSection.h"
#include "ui/theme/Theme.h"

#include <algorithm>

#include <QtGui/QPainter>

namespace driftbox {

namespace {

constexpr QSizeF switchSize(38.0, 22.0);
constexpr qreal knobInset = 2.0;
constexpr int toggleRowSpacing = 12;
constexpr int toggleRowVerticalPadding = 10;
constexpr int minTextWidth = 120;
constexpr int slideDurationMs = 140;
constexpr qreal offOpacity = 0.22;
constexpr qreal disabledOpacity = 0.4;

} // namespace

ToggleRow::ToggleRow(const QString& label, QWidget* parent)
    : QCheckBox(label, parent)
{
    setFont(Theme::systemFont(13));
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    m_knob.setDuration(slideDurationMs);
    m_knob.setEasingCurve(QEasingCurve::InOutCubic);
    m_knob.setStartValue(0.0);
    m_knob.setEndValue(1.0);
    connect(&m_knob, &QVariantAnimation::valueChanged, this, [this] { update(); });
    connect(this, &QCheckBox::toggled, this, &ToggleRow::animateKnob);
}

QSize ToggleRow::sizeHint() const
{
    const int fixed = 2 * FormSection::sidePadding + toggleRowSpacing + qRound(switchSize.width());
    const int width = fixed + fontMetrics().horizontalAdvance(text());
    return {width, heightForWidth(width)};
}

QSize ToggleRow::minimumSizeHint() const
{
    const int width =
        2 * FormSection::sidePadding + toggleRowSpacing + qRound(switchSize.width()) + minTextWidth;
    return {width, 2 * toggleRowVerticalPadding + fontMetrics().height()};
}

int ToggleRow::heightForWidth(int width) const
{
    const int textWidth =
        width - 2 * FormSection::sidePadding - toggleRowSpacing - qRound(switchSize.width());
    const QRect bounds = fontMetrics().boundingRect(QRect(0, 0, textWidth, QWIDGETSIZE_MAX),
                                                    Qt::TextWordWrap, text());
    return std::max({minimumHeight(), qRound(switchSize.height()) + 2 * toggleRowVerticalPadding,
                     bounds.height() + 2 * toggleRowVerticalPadding});
}

bool ToggleRow::hitButton(const QPoint& position) const
{
    return rect().contains(position);
}

void ToggleRow::animateKnob(bool on)
{
    m_knob.setDirection(on ? QAbstractAnimation::Forward : QAbstractAnimation::Backward);
    if (!isVisible())
        m_knob.setCurrentTime(on ? slideDurationMs : 0);
    else if (m_knob.state() != QAbstractAnimation::Running)
        m_knob.start();
}

void ToggleRow::showEvent(QShowEvent* event)
{
    m_knob.stop();
    m_knob.setCurrentTime(isChecked() ? slideDurationMs : 0);
    QCheckBox::showEvent(event);
}

QRectF ToggleRow::track() const
{
    const qreal left = width() - FormSection::sidePadding - switchSize.width();
    return {QPointF(left, (height() - switchSize.height()) / 2.0), switchSize};
}

void ToggleRow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF text(FormSection::sidePadding, 0,
                      track().left() - toggleRowSpacing - FormSection::sidePadding, height());
    painter.setFont(font());
    painter.setPen(isEnabled() ? Theme::primary()
                               : palette().color(QPalette::Disabled, QPalette::Text));
    painter.drawText(text, Qt::AlignVCenter | Qt::TextWordWrap, this->text());
    paintSwitch(painter);
}

void ToggleRow::paintSwitch(QPainter& painter) const
{
    const qreal share = m_knob.currentValue().toReal();
    const QRectF body = track();
    const qreal radius = body.height() / 2.0;
    painter.setOpacity(isEnabled() ? 1.0 : disabledOpacity);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::mixed(Theme::withOpacity(Theme::primary(), offOpacity),
                                  palette().color(QPalette::Active, QPalette::Highlight), share));
    painter.drawRoundedRect(body, radius, radius);

    const qreal knobRadius = radius - knobInset;
    const QPointF knob(body.left() + radius + share * (body.width() - 2.0 * radius),
                       body.center().y());
    painter.setBrush(QColor(0, 0, 0, 40));
    painter.drawEllipse(knob + QPointF(0.0, 0.75), knobRadius, knobRadius);
    painter.setBrush(Qt::white);
    painter.drawEllipse(knob, knobRadius, knobRadius);
    if (hasFocus()) {
        painter.setPen(QPen(Theme::accent(), 2.0));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(body.adjusted(-3, -3, 3, 3), radius + 3, radius + 3);
    }
}

} // namespace driftbox
