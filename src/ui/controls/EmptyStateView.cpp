#include "ui/controls/EmptyStateView.h"

#include "ui/theme/Symbols.h"
#include "ui/theme/Theme.h"

#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>
#include <QtWidgets/QAccessibleWidget>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int emptyStateViewSymbolSize = 30;
constexpr qreal emptyStateViewSymbolSpacing = 12.0;
constexpr qreal lineSpacing = 4.0;
constexpr qreal emptyStateViewSidePadding = 24.0;
constexpr int emptyStateViewTextFlags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;
// The optical center is slightly above the geometric one.
constexpr qreal opticalCenter = 0.46;

// Exposed to screen readers as text, not as a container.
QAccessibleInterface* makeEmptyStateInterface(const QString&, QObject* object)
{
    auto* view = qobject_cast<EmptyStateView*>(object);
    return view ? new QAccessibleWidget(view, QAccessible::StaticText) : nullptr;
}

} // namespace

EmptyStateView::EmptyStateView(QWidget* parent)
    : QWidget(parent)
{
    QAccessible::installFactory(makeEmptyStateInterface); // no effect if installed already
}

void EmptyStateView::setContent(const QString& systemImage, const QString& title,
                                const QString& description)
{
    m_systemImage = systemImage;
    m_title = title;
    m_description = description;
    setAccessibleName(description.isEmpty() ? title : title + u". "_s + description);
    update();
}

void EmptyStateView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QFont titleFont = Theme::Font::rowTitle();
    const QFont descriptionFont = Theme::Font::rowMeta();
    const QRectF column =
        QRectF(rect()).adjusted(emptyStateViewSidePadding, 0, -emptyStateViewSidePadding, 0);
    const auto heightOf = [&column](const QFont& font, const QString& text) {
        return text.isEmpty() ? 0.0
                              : QFontMetricsF(font)
                                    .boundingRect(column, emptyStateViewTextFlags, text)
                                    .height();
    };
    const qreal symbolHeight = Symbols::extent(emptyStateViewSymbolSize);
    const qreal titleHeight = heightOf(titleFont, m_title);
    const qreal height = symbolHeight + emptyStateViewSymbolSpacing + titleHeight + lineSpacing +
                         heightOf(descriptionFont, m_description);

    QRectF line = column;
    line.moveTop((column.height() - height) * opticalCenter);
    Symbols::paint(painter, QRectF(line.topLeft(), QSizeF(line.width(), symbolHeight)),
                   m_systemImage, {.size = emptyStateViewSymbolSize, .color = Theme::tertiary()});
    line.translate(0, symbolHeight + emptyStateViewSymbolSpacing);
    painter.setFont(titleFont);
    painter.setPen(Theme::secondary());
    painter.drawText(line, emptyStateViewTextFlags, m_title);
    line.translate(0, titleHeight + lineSpacing);
    painter.setFont(descriptionFont);
    painter.setPen(Theme::tertiary());
    painter.drawText(line, emptyStateViewTextFlags, m_description);
}

} // namespace driftbox
