#include "app/MenuBarSymbol.h"

#include "ui/theme/CardShape.h"
#include "ui/theme/Symbols.h"

#include <QtGui/QLinearGradient>
#include <QtGui/QPainter>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr qreal tileShare = 0.92;
constexpr qreal cornerShare = 0.24;
constexpr qreal symbolShare = 0.60;

// A rounded square, whose blue has enough contrast with white and with black.
QPixmap draw(int side)
{
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal tile = side * tileShare;
    const QRectF frame((side - tile) / 2.0, (side - tile) / 2.0, tile, tile);
    QLinearGradient blue(frame.topLeft(), frame.bottomLeft());
    blue.setColorAt(0.0, QColor(0x5b, 0x8c, 0xff));
    blue.setColorAt(1.0, QColor(0x3a, 0x5b, 0xe0));
    painter.fillPath(continuousRoundedRect(frame, tile * cornerShare), blue);
    Symbols::paint(painter, frame, u"bolt.fill"_s,
                   {.size = qRound(side * symbolShare), .color = Qt::white});
    return picture;
}

} // namespace

QIcon menuBarSymbol()
{
    QIcon icon;
    for (const int side : {16, 22, 24, 32, 44, 48, 64})
        icon.addPixmap(draw(side));
    return icon;
}

} // namespace driftbox
