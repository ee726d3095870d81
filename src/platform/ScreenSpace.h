#pragma once

#include "platform/Screens.h"

#include <optional>
#include <vector>

#include <QtCore/QRectF>

/// All coordinate conversions. There are four coordinate systems, all but the last in points.
///
/// Screen space, which all models and manifests use: origin at the bottom left corner of the
/// primary screen, y pointing up.
///
/// Desktop space, which accessibility interfaces use: origin at the top left corner of the primary
/// screen, y pointing down.
///
/// Toolkit space: origin at the top left corner of the whole desktop, which may be on another
/// screen, y pointing down.
///
/// Device space: pixels of the whole desktop, y pointing down.
namespace driftbox::ScreenSpace {

/// Flips the y axis. `primaryHeight` is the height of the primary screen in points. The same
/// formula applies in both directions.
[[nodiscard]] QRectF flipped(const QRectF& rectangle, qreal primaryHeight);
[[nodiscard]] QPointF flipped(QPointF point, qreal primaryHeight);

/// Conversions between toolkit space and screen space; `primary` is the primary screen in toolkit
/// space.
[[nodiscard]] QRectF fromToolkit(const QRectF& rectangle, const QRectF& primary);
[[nodiscard]] QPointF fromToolkit(QPointF point, const QRectF& primary);
[[nodiscard]] QRectF toToolkit(const QRectF& rectangle, const QRectF& primary);

/// Converts a rectangle from device space to desktop space, using the scale of the screen that
/// contains its center; none when no screen does.
[[nodiscard]] std::optional<QRectF> desktopFromDevice(const QRectF& pixels,
                                                      const std::vector<Screen>& screens);

} // namespace driftbox::ScreenSpace
