#include "ui/list/RowPainting.h"

#include "ui/theme/Symbols.h"
#include "ui/theme/Theme.h"

#include <algorithm>

#include <QtCore/QtMath>
#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>

using namespace Qt::StringLiterals;

namespace driftbox::RowPainting {

namespace {

constexpr int rowPaintingSymbolSize = 13;
constexpr qreal highlightRadius = 7.0;
constexpr qreal buttonRadius = 5.0;
constexpr qreal selectedOpacity = 0.16;
constexpr qreal rowHoverOpacity = 0.6; // of the standard fill, which is for smaller areas

// The advance of every digit of a time: that of the widest one, so that the times are aligned.
qreal digitWidth(const QFontMetricsF& metrics)
{
    qreal maxWidth = 0;
    for (const QChar digit : u"0123456789"_s)
        maxWidth = std::max(maxWidth, metrics.horizontalAdvance(digit));
    return maxWidth;
}

void paintHighlight(QPainter& painter, const QRect& area, const RowState& state)
{
    if (!state.isRevealed())
        return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(state.isSelected ? Theme::withOpacity(Theme::accent(), selectedOpacity)
                                      : Theme::withOpacity(Theme::hoverFill(), rowHoverOpacity));
    painter.drawRoundedRect(area, highlightRadius, highlightRadius);
    if (state.isPressed) {
        painter.setBrush(Theme::hoverFill());
        painter.drawRoundedRect(area, highlightRadius, highlightRadius);
    }
}

} // namespace

void paintBackground(QPainter& painter, const QRect& rect, const RowLayout& layout,
                     const RowState& state)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(rect); // stacked combining marks may be arbitrarily high
    painter.translate(rect.topLeft());
    painter.fillRect(layout.divider(), Theme::divider());
    paintHighlight(painter, layout.highlight(), state);
}

int timeWidth()
{
    const QFontMetricsF metrics(Theme::Font::rowMeta());
    constexpr int digits = 10;
    return qCeil(digits * digitWidth(metrics) + metrics.horizontalAdvance(u"- ::"_s));
}

void paintTime(QPainter& painter, const QRectF& area, const QString& time)
{
    painter.setFont(Theme::Font::rowMeta());
    painter.setPen(Theme::tertiary());
    const QFontMetricsF metrics(painter.font());
    const qreal digitAdvance = digitWidth(metrics);
    const qreal baseline = qRound((area.height() - metrics.height()) / 2 + metrics.ascent());
    QPointF position(area.left(), area.top() + baseline);
    for (const QChar character : time) {
        const qreal width = metrics.horizontalAdvance(character);
        const qreal advance = character.isDigit() ? digitAdvance : width;
        painter.drawText(position + QPointF((advance - width) / 2, 0), QString(character));
        position.rx() += advance;
    }
}

void paintButton(QPainter& painter, const QRect& area, const QString& systemImage,
                 const QColor& color, const RowState& state, int button)
{
    if (state.buttonUnderPointer == button) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(
            Theme::withOpacity(Theme::hoverFill(), state.pressedButton == button ? 2.0 : 1.0));
        painter.drawRoundedRect(area, buttonRadius, buttonRadius);
    }
    Symbols::paint(painter, area, systemImage, {.size = rowPaintingSymbolSize, .color = color});
}

} // namespace driftbox::RowPainting
