#include "ui/controls/Divider.h"

#include "ui/theme/Theme.h"

#include <QtGui/QPainter>

namespace driftbox {

namespace {
constexpr int thickness = 1;
}

Divider::Divider(Qt::Orientation orientation, QWidget* parent, qreal opacity)
    : QWidget(parent)
    , m_opacity(opacity)
{
    if (orientation == Qt::Vertical)
        setFixedWidth(thickness);
    else
        setFixedHeight(thickness);
}

void Divider::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), Theme::withOpacity(Theme::divider(), m_opacity));
}

} // namespace driftbox
