#include "settings/view/SidebarIconTile.h"

#include "settings/view/SystemColors.h"
#include "ui/theme/CardShape.h"

#include <QtGui/QLinearGradient>
#include <QtGui/QPainter>

namespace driftbox {

namespace {
constexpr int lighterAtTop = 112; // percent
}

void paintSidebarIconTile(QPainter& painter, const QRectF& tile, SettingsSection section)
{
    paintIconTile(painter, tile, section,
                  {.cornerRadius = 6.0, .symbolSize = 12, .weight = Symbols::Weight::bold});
}

void paintIconTile(QPainter& painter, const QRectF& tile, SettingsSection section,
                   const IconTileStyle& style)
{
    const SettingsSectionLook look = lookOf(section);
    const QColor color = systemColor(look.iconColor);
    QLinearGradient fill(tile.topLeft(), tile.bottomLeft());
    fill.setColorAt(0.0, color.lighter(lighterAtTop));
    fill.setColorAt(1.0, color);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(continuousRoundedRect(tile, style.cornerRadius), fill);
    Symbols::paint(painter, tile, look.systemImage,
                   {.size = style.symbolSize, .color = Qt::white, .weight = style.weight});
    painter.restore();
}

} // namespace driftbox
