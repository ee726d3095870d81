#include "settings/view/ActionButton.h"

#include "ui/theme/ControlParts.h"
#include "ui/theme/Symbols.h"
#include "ui/theme/Theme.h"

#include <algorithm>

#include <QtGui/QPainter>
#include <QtWidgets/QStyleOptionButton>

namespace driftbox {

namespace {

constexpr int actionButtonSymbolSize = 13;
constexpr int actionButtonSymbolSpacing = 7;
constexpr int actionButtonSidePadding = 12;
constexpr int minHeight = 30;
constexpr int actionButtonVerticalPadding = 6;

} // namespace

ActionButton::ActionButton(QString systemImage, const QString& label, Kind kind, QWidget* parent)
    : QPushButton(label, parent)
    , m_systemImage(std::move(systemImage))
    , m_kind(kind)
{
    setFont(Theme::systemFont(13));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
}

int ActionButton::contentWidth() const
{
    const int symbol = m_systemImage.isEmpty()
                           ? 0
                           : Symbols::extent(actionButtonSymbolSize) + actionButtonSymbolSpacing;
    return symbol + fontMetrics().horizontalAdvance(text());
}

QSize ActionButton::sizeHint() const
{
    return {contentWidth() + 2 * actionButtonSidePadding,
            std::max(minHeight, fontMetrics().height() + 2 * actionButtonVerticalPadding)};
}

void ActionButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QStyleOptionButton option;
    initStyleOption(&option);
    ControlParts::drawButton(painter, rect(), palette(), option.state);

    const QColor color = !isEnabled() ? palette().color(QPalette::Disabled, QPalette::ButtonText)
                         : m_kind == Kind::destructive ? Theme::destructive()
                                                       : Theme::primary();
    int left = (width() - contentWidth()) / 2;
    if (!m_systemImage.isEmpty()) {
        const int symbol = Symbols::extent(actionButtonSymbolSize);
        Symbols::paint(painter, QRect(left, 0, symbol, height()), m_systemImage,
                       {.size = actionButtonSymbolSize, .color = color});
        left += symbol + actionButtonSymbolSpacing;
    }
    painter.setFont(font());
    painter.setPen(color);
    painter.drawText(QRect(left, 0, width() - left, height()), Qt::AlignVCenter, text());
}

} // namespace driftbox
