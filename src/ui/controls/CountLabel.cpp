#include "ui/controls/CountLabel.h"

#include "ui/theme/Theme.h"

#include <QtGui/QPainter>

namespace driftbox {

CountLabel::CountLabel(QWidget* parent)
    : QLabel(parent)
{
    setFont(Theme::Font::rowMeta());
}

void CountLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(Theme::secondary());
    painter.drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, text());
}

} // namespace driftbox
