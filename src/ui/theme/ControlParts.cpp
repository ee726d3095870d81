#include "ui/theme/ControlParts.h"

#include "ui/theme/CardShape.h"
#include "ui/theme/Theme.h"

#include <algorithm>
#include <array>

#include <QtGui/QPainter>
#include <QtGui/QPalette>

namespace driftbox::ControlParts {

namespace {

constexpr qreal controlPartsCornerRadius = 6.0;
constexpr qreal boxRadius = 4.0;
constexpr qreal controlPartsOutlineOpacity = 0.18;
constexpr qreal knobRadius = 7.5;
constexpr qreal focusWidth = 2.0;

QPalette::ColorGroup groupOf(QStyle::State state)
{
    return state & QStyle::State_Enabled ? QPalette::Active : QPalette::Disabled;
}

QColor textColor(const QPalette& palette, QStyle::State state)
{
    return palette.color(groupOf(state), QPalette::WindowText);
}

QColor accentColor(const QPalette& palette, QStyle::State state)
{
    const QColor accent = palette.color(QPalette::Active, QPalette::Highlight);
    return state & QStyle::State_Enabled ? accent : Theme::withOpacity(accent, 0.4);
}

QPen outlinePen(const QPalette& palette, QStyle::State state)
{
    if (state & QStyle::State_HasFocus && state & QStyle::State_Enabled)
        return {accentColor(palette, state), focusWidth};
    return {Theme::withOpacity(textColor(palette, state), controlPartsOutlineOpacity), 1.0};
}

// Hovering and pressing darken a light control and lighten a dark one.
QColor withFeedback(const QColor& fill, const QPalette& palette, QStyle::State state)
{
    if (!(state & QStyle::State_Enabled))
        return Theme::withOpacity(fill, 0.5);
    const qreal share = state & QStyle::State_Sunken      ? 0.14
                        : state & QStyle::State_MouseOver ? 0.06
                                                          : 0.0;
    return Theme::mixed(fill, palette.color(QPalette::WindowText), share);
}

void drawBody(QPainter& painter, const QRectF& frame, qreal radius, const QColor& fill,
              const QPen& outline)
{
    const qreal inset = outline.widthF() / 2.0;
    painter.setPen(outline);
    painter.setBrush(fill);
    painter.drawPath(
        continuousRoundedRect(frame.adjusted(inset, inset, -inset, -inset), radius - inset));
}

} // namespace

void drawButton(QPainter& painter, const QRectF& frame, const QPalette& palette,
                QStyle::State state)
{
    drawBody(painter, frame, controlPartsCornerRadius,
             withFeedback(palette.color(QPalette::Active, QPalette::Button), palette, state),
             outlinePen(palette, state));
}

void drawField(QPainter& painter, const QRectF& frame, const QPalette& palette, QStyle::State state)
{
    drawBody(painter, frame, controlPartsCornerRadius,
             palette.color(groupOf(state), QPalette::Base), outlinePen(palette, state));
}

void drawCheckBox(QPainter& painter, const QRectF& frame, const QPalette& palette,
                  QStyle::State state)
{
    if (!(state & (QStyle::State_On | QStyle::State_NoChange))) {
        drawBody(painter, frame, boxRadius,
                 withFeedback(palette.color(QPalette::Base), palette, state),
                 outlinePen(palette, state));
        return;
    }
    drawBody(painter, frame, boxRadius, accentColor(palette, state), QPen(Qt::NoPen));
    painter.setPen(QPen(palette.color(QPalette::HighlightedText), frame.width() / 8.0,
                        Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const auto at = [&frame](qreal x, qreal y) {
        return frame.topLeft() + QPointF(x * frame.width(), y * frame.height());
    };
    if (state & QStyle::State_NoChange)
        painter.drawLine(at(0.28, 0.5), at(0.72, 0.5));
    else
        painter.drawPolyline(std::array{at(0.26, 0.53), at(0.43, 0.70), at(0.75, 0.32)}.data(), 3);
}

void drawRadioButton(QPainter& painter, const QRectF& frame, const QPalette& palette,
                     QStyle::State state)
{
    const bool isOn = state & QStyle::State_On;
    const QPen outline = isOn ? QPen(Qt::NoPen) : outlinePen(palette, state);
    const qreal inset = outline.widthF() / 2.0;
    painter.setPen(outline);
    painter.setBrush(isOn ? accentColor(palette, state)
                          : withFeedback(palette.color(QPalette::Base), palette, state));
    painter.drawEllipse(frame.adjusted(inset, inset, -inset, -inset));
    if (!isOn)
        return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette.color(QPalette::HighlightedText));
    painter.drawEllipse(frame.center(), frame.width() * 0.19, frame.height() * 0.19);
}

void drawGroove(QPainter& painter, const QRectF& groove, const QRectF& filled,
                const QPalette& palette, QStyle::State state)
{
    const qreal radius = std::min(groove.width(), groove.height()) / 2.0;
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::withOpacity(textColor(palette, state), 0.15));
    painter.drawRoundedRect(groove, radius, radius);
    painter.setBrush(accentColor(palette, state));
    painter.drawRoundedRect(filled, radius, radius);
}

void drawKnob(QPainter& painter, QPointF center, const QPalette& palette, QStyle::State state)
{
    painter.setPen(state & QStyle::State_HasFocus ? outlinePen(palette, state)
                                                  : QPen(QColor(0, 0, 0, 60), 1.0));
    painter.setBrush(QColor(0xfd, 0xfd, 0xfe)); // light in the dark color scheme, too
    painter.drawEllipse(center, knobRadius, knobRadius);
}

void drawThumb(QPainter& painter, const QRectF& thumb, const QPalette& palette, QStyle::State state)
{
    const bool isActive = state & (QStyle::State_Sunken | QStyle::State_MouseOver);
    const qreal radius = std::min(thumb.width(), thumb.height()) / 2.0;
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::withOpacity(textColor(palette, state), isActive ? 0.45 : 0.25));
    painter.drawRoundedRect(thumb, radius, radius);
}

void drawChevron(QPainter& painter, const QRectF& area, Qt::ArrowType direction,
                 const QPalette& palette, QStyle::State state)
{
    constexpr qreal halfWidth = 3.5;
    const qreal rise = direction == Qt::UpArrow ? -1.75 : 1.75;
    const QPointF center = area.center();
    painter.setPen(QPen(Theme::withOpacity(textColor(palette, state), 0.7), 1.5, Qt::SolidLine,
                        Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(std::array{center + QPointF(-halfWidth, -rise), center + QPointF(0, rise),
                                    center + QPointF(halfWidth, -rise)}
                             .data(),
                         3);
}

} // namespace driftbox::ControlParts
