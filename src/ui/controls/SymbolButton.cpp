#include "ui/controls/SymbolButton.h"

#include "ui/controls/Tooltip.h"
#include "ui/theme/Symbols.h"
#include "ui/theme/Theme.h"

#include <algorithm>

#include <QtGui/QPainter>

namespace driftbox {

namespace {

constexpr int symbolButtonSymbolSize = 12;
constexpr int labelSpacing = 5;
constexpr qreal symbolButtonCornerRadius = 5.0;
constexpr qreal disabledOpacity = 0.45;
constexpr qreal pressedOpacity = 1.8; // relative to the hover fill

} // namespace

SymbolButton::SymbolButton(QString systemImage, const QString& help, QWidget* parent)
    : QAbstractButton(parent)
    , m_systemImage(std::move(systemImage))
{
    setFont(Theme::Font::rowMeta());
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleName(help);
    setTooltip(*this, help);
}

void SymbolButton::setSystemImage(const QString& systemImage)
{
    m_systemImage = systemImage;
    update();
}

void SymbolButton::setLabel(const QString& label)
{
    setText(label);
    setAccessibleName(label);
    updateGeometry();
}

QSize SymbolButton::sizeHint() const
{
    const int symbol = Symbols::extent(symbolButtonSymbolSize);
    const int label = text().isEmpty() ? 0 : labelSpacing + fontMetrics().horizontalAdvance(text());
    return QSize(symbol + label, std::max(symbol, fontMetrics().height())) +
           2 * QSize(padding, padding);
}

void SymbolButton::enterEvent(QEnterEvent* event)
{
    QAbstractButton::enterEvent(event);
    update();
}
void SymbolButton::leaveEvent(QEvent* event)
{
    QAbstractButton::leaveEvent(event);
    update();
}

void SymbolButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isActive = isEnabled() && underMouse();
    if (isActive) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(Theme::withOpacity(Theme::hoverFill(), isDown() ? pressedOpacity : 1.0));
        painter.drawRoundedRect(rect(), symbolButtonCornerRadius, symbolButtonCornerRadius);
    }
    if (hasFocus()) {
        painter.setPen(QPen(Theme::accent(), 2.0));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), symbolButtonCornerRadius,
                                symbolButtonCornerRadius);
    }
    const QColor color = isActive      ? Theme::primary()
                         : isEnabled() ? Theme::secondary()
                                       : Theme::withOpacity(Theme::tertiary(), disabledOpacity);
    const QRect inside = rect().adjusted(padding, padding, -padding, -padding);
    const int symbol = Symbols::extent(symbolButtonSymbolSize);
    Symbols::paint(painter, QRect(inside.left(), inside.top(), symbol, inside.height()),
                   m_systemImage, {.size = symbolButtonSymbolSize, .color = color});
    painter.setFont(font());
    painter.setPen(color);
    painter.drawText(inside.adjusted(symbol + labelSpacing, 0, 0, 0), Qt::AlignVCenter, text());
}

} // namespace driftbox
