#include "notes/view/NoteButton.h"

#include "notes/view/NotePaper.h"
#include "ui/controls/Tooltip.h"
#include "ui/theme/Theme.h"

#include <QtGui/QPainter>

namespace driftbox {

namespace {

constexpr qreal hoverOpacity = 0.09;
constexpr qreal pressedOpacity = 0.16;
constexpr qreal focusOpacity = 0.5;
constexpr qreal noteButtonCornerRadius = 5.0;

constexpr qreal noteButtonSwatchDiameter = 11.0;
constexpr qreal ringDiameter = 15.0;
constexpr qreal noteButtonOutlineOpacity = 0.28;
constexpr qreal ringOpacity = 0.75;

QRectF circle(const QRectF& area, qreal diameter)
{
    QRectF result(0, 0, diameter, diameter);
    result.moveCenter(area.center());
    return result;
}

} // namespace

NoteButton::NoteButton(QWidget* parent)
    : QAbstractButton(parent)
{
    setFocusPolicy(Qt::TabFocus);
}

void NoteButton::enterEvent(QEnterEvent* event)
{
    QAbstractButton::enterEvent(event);
    update();
}
void NoteButton::leaveEvent(QEvent* event)
{
    QAbstractButton::leaveEvent(event);
    update();
}

void NoteButton::paintHoverAndFocus(QPainter& painter) const
{
    if (underMouse()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(NotePaper::ink(isDown() ? pressedOpacity : hoverOpacity));
        painter.drawRoundedRect(rect(), noteButtonCornerRadius, noteButtonCornerRadius);
    }
    if (hasFocus()) {
        painter.setPen(QPen(NotePaper::ink(focusOpacity), 1.5));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), noteButtonCornerRadius,
                                noteButtonCornerRadius);
    }
}

NoteSymbolButton::NoteSymbolButton(QWidget* parent, int symbolSize, Symbols::Weight weight)
    : NoteButton(parent)
    , m_symbolSize(symbolSize)
    , m_weight(weight)
{
}

void NoteSymbolButton::setContent(const QString& systemImage, const QString& help)
{
    m_systemImage = systemImage;
    setAccessibleName(help);
    setTooltip(*this, help);
    update();
}

void NoteSymbolButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintHoverAndFocus(painter);
    Symbols::paint(painter, rect(), m_systemImage,
                   {.size = m_symbolSize,
                    .color = underMouse() ? NotePaper::ink() : NotePaper::symbol(),
                    .weight = m_weight});
}

NoteSwatchButton::NoteSwatchButton(NoteColor color, QWidget* parent)
    : NoteButton(parent)
    , m_color(color)
{
    setCheckable(true);
    setAccessibleName(displayName(color));
    setTooltip(*this, displayName(color));
}

void NoteSwatchButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintHoverAndFocus(painter);
    painter.setBrush(Theme::noteSwatch(m_color));
    painter.setPen(QPen(NotePaper::ink(noteButtonOutlineOpacity), 1.0));
    painter.drawEllipse(circle(rect(), noteButtonSwatchDiameter));
    if (isChecked()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(NotePaper::ink(ringOpacity), 1.5));
        painter.drawEllipse(circle(rect(), ringDiameter));
    }
}

} // namespace driftbox
