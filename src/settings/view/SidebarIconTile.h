#pragma once

#include "settings/SettingsSection.h"
#include "ui/theme/Symbols.h"

#include <QtCore/QRectF>

class QPainter;

namespace driftbox {

/// The side of the tile before a page's title in the sidebar, in points.
inline constexpr int sidebarIconTileSide = 22;

/// Draws that tile: the page's symbol, white on a rounded square of the page's color.
void paintSidebarIconTile(QPainter& painter, const QRectF& tile, SettingsSection section);

/// The same at any size.
struct IconTileStyle
{
    qreal cornerRadius;
    int symbolSize;
    Symbols::Weight weight;
};
void paintIconTile(QPainter& painter, const QRectF& tile, SettingsSection section,
                   const IconTileStyle& style);

} // namespace driftbox
