#pragma once

#include "platform/Screens.h"

#include <optional>
#include <vector>

#include <QtCore/QRectF>

/// The one place where coordinates are converted. Four spaces meet here, all but the last in
/// points.
///
/// Screen space, which all models and manifests use: origin at the bottom left corner of the
/// primary screen, y growing upwards.
///
/// Desktop space, which accessibility speaks: origin at the top left corner of the primary screen,
/// y growing downwards.
///
/// Toolkit space: origin at the top left corner of the whole desktop, which another screen may
/// hold, y growing downwards.
///
/// Device space: pixels of the whole desktop, y growing downwards.
namespace driftbox::ScreenSpace {

/// `primaryHeight` is the height of the primary screen in points. The same formula serves both
/// ways.
[[nodiscard]] QRectF flipped(const QRectF& rectangle, qreal primaryHeight);
[[nodiscard]] QPointF flipped(QPointF point, qreal primaryHeight);

/// Between toolkit space and screen space; `primary` is the primary screen in toolkit space.
[[nodiscard]] QRectF fromToolkit(const QRectF& rectangle, const QRectF& primary);
[[nodiscard]] QPointF fromToolkit(QPointF point, const QRectF& primary);
[[nodiscard]] QRectF toToolkit(const QRectF& rectangle, const QRectF& primary);

/// A rectangle in device space as desktop space sees it, by the scale of the screen that holds its
/// center; none when no screen does.
[[nodiscard]] std::optional<QRectF> desktopFromDevice(const QRectF& pixels,
                                                      const std::vector<Screen>& screens);

} // namespace driftbox::ScreenSpace
