#include "ui/list/PreviewText.h"

#include <algorithm>
#include <cmath>

#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>

namespace driftbox {

namespace {

constexpr size_t maxLines = 2;
constexpr int tabWidth = 4; // in spaces
constexpr QChar ellipsis(0x2026);
// More characters than fit in nearly every line: the rest is laid out only if it is needed.
constexpr qsizetype typicalLineLength = 100;

QTextOption optionFor(const QFont& font, Qt::LayoutDirection direction)
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTextDirection(direction);
    option.setAlignment(direction == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft);
    option.setTabStopDistance(tabWidth * QFontMetricsF(font).horizontalAdvance(u' '));
    return option;
}

Qt::LayoutDirection directionOf(const QString& text)
{
    return text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
}

QString trimmedAtEnd(QString text)
{
    while (!text.isEmpty() && text.back().isSpace())
        text.chop(1);
    return text;
}

qreal lineHeightOf(const QFont& font)
{
    return std::ceil(QFontMetricsF(font).height());
}

} // namespace

PreviewText::PreviewText(const PreviewLines& lines, const QFont& font, qreal width)
    : m_font(font)
    , m_width(width)
{
    addParagraph(lines.first, !lines.second.isEmpty());
    if (m_lines.size() < maxLines && !lines.second.isEmpty())
        addLine(elided(lines.second, lines.hasMore), directionOf(lines.second));
}

bool PreviewText::fits(const QFont& font, qreal width) const
{
    return m_font == font && m_width == width;
}

void PreviewText::addParagraph(const QString& text, bool continues)
{
    const Qt::LayoutDirection direction = directionOf(text);
    const qsizetype length = lengthOfFirstLine(text);
    addLine(text.first(length), direction);
    if (length < text.size())
        addLine(elided(text.sliced(length), continues), direction);
}

// The part of `text` that fits in a line, with an ellipsis if some of it is missing.
QString PreviewText::elided(const QString& text, bool continues) const
{
    QString whole = continues ? trimmedAtEnd(text) + ellipsis : text;
    const QFontMetricsF metrics(m_font);
    for (const qsizetype length : {std::min(whole.size(), typicalLineLength), whole.size()}) {
        const QString beginning = whole.first(length);
        QString kept = metrics.elidedText(beginning, Qt::ElideRight, m_width);
        if (kept == beginning)
            continue;
        while (kept.endsWith(ellipsis))
            kept.chop(1);
        return trimmedAtEnd(kept) + ellipsis;
    }
    return whole;
}

qsizetype PreviewText::lengthOfFirstLine(const QString& text) const
{
    for (const qsizetype length : {std::min(text.size(), typicalLineLength), text.size()}) {
        QTextLayout layout(text.first(length), m_font);
        layout.setTextOption(optionFor(m_font, directionOf(text)));
        layout.beginLayout();
        QTextLine line = layout.createLine();
        if (line.isValid())
            line.setLineWidth(m_width);
        layout.endLayout();
        if (line.isValid() && line.textLength() < length)
            return line.textLength();
    }
    return text.size();
}

void PreviewText::addLine(const QString& text, Qt::LayoutDirection direction)
{
    auto layout = std::make_unique<QTextLayout>(text, m_font);
    QTextOption option = optionFor(m_font, direction);
    option.setWrapMode(QTextOption::NoWrap);
    layout->setTextOption(option);
    layout->setCacheEnabled(true);
    layout->beginLayout();
    QTextLine line = layout->createLine();
    if (line.isValid()) {
        line.setLineWidth(m_width);
        const qreal baseline = static_cast<qreal>(m_lines.size()) * lineHeightOf(m_font) +
                               QFontMetricsF(m_font).ascent();
        line.setPosition({0, std::round(baseline) - line.ascent()});
    }
    layout->endLayout();
    m_lines.push_back(std::move(layout));
}

qreal PreviewText::height() const
{
    return static_cast<qreal>(m_lines.size()) * lineHeightOf(m_font);
}

QStringList PreviewText::texts() const
{
    QStringList texts;
    for (const auto& line : m_lines)
        texts << line->text();
    return texts;
}

void PreviewText::paint(QPainter& painter, const QRect& area) const
{
    const qreal top = std::round(area.top() + (area.height() - height()) / 2);
    for (const auto& line : m_lines)
        line->draw(&painter, QPointF(area.left(), top));
}

} // namespace driftbox
