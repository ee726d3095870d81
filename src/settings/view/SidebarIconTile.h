#pragma once

#include "settings/SettingsSection.h"
#include "ui/theme/Symbols.h"

#include <QtCore/QRectF>

class QPainter;

namespace driftbox {

/// The side length of the tile next to a page's title in the sidebar, in points.
inline constexpr int sidebarIconTileSide = 22;

/// Paints that tile: the page's symbol, white on a rounded square in the page's color.
void paintSidebarIconTile(QPainter& painter, const QRectF& tile, SettingsSection section);

/// The style of a tile of any size.
struct IconTileStyle
{
    qreal cornerRadius;
    int symbolSize;
    Symbols::Weight weight;
};
void paintIconTile(QPainter& painter, const QRectF& tile, SettingsSection section,
                   const IconTileStyle& style);

} // namespace driftbox
