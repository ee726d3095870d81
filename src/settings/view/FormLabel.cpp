#include "settings/view/FormLabel.h"

#include "ui/theme/Theme.h"

#include <algorithm>
#include <functional>
#include <numeric>

#include <QtGui/QPainter>

namespace driftbox {

FormLabel::FormLabel(const QString& text, const QFont& font, Tone tone, QWidget* parent)
    : QLabel(text, parent)
    , m_tone(tone)
{
    setFont(font);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

void FormLabel::setDigitsOfFixedWidth(int column)
{
    m_digitsColumn = column;
    setWordWrap(false);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
}

int FormLabel::widthOf(QChar character) const
{
    return fontMetrics().horizontalAdvance(character.isDigit() ? u'0' : character);
}

QSize FormLabel::sizeHint() const
{
    return m_digitsColumn ? minimumSizeHint() : QLabel::sizeHint();
}

QSize FormLabel::minimumSizeHint() const
{
    if (!m_digitsColumn)
        return QLabel::minimumSizeHint();
    const QString line = text();
    const int width = std::transform_reduce(line.begin(), line.end(), 0, std::plus(),
                                            [this](QChar character) { return widthOf(character); });
    return {std::max(*m_digitsColumn, width), fontMetrics().height()};
}

void FormLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(!isEnabled()              ? palette().color(QPalette::Disabled, QPalette::Text)
                   : m_tone == Tone::primary ? Theme::primary()
                                             : Theme::secondary());
    if (m_digitsColumn)
        return paintWithFixedDigits(painter);
    const int wrap = wordWrap() ? Qt::TextWordWrap : 0;
    painter.drawText(contentsRect(), static_cast<int>(alignment()) | wrap, text());
}

// A single line, painted right to left.
void FormLabel::paintWithFixedDigits(QPainter& painter) const
{
    int right = contentsRect().right() + 1;
    const QString line = text();
    for (qsizetype index = line.size() - 1; index >= 0; --index) {
        const QChar character = line.at(index);
        const int width = widthOf(character);
        right -= width;
        painter.drawText(QRect(right, 0, width, height()), Qt::AlignCenter, character);
    }
}

} // namespace driftbox
