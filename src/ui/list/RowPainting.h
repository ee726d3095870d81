#pragma once

#include "ui/list/RowDelegate.h"
#include "ui/list/RowLayout.h"

#include <QtGui/QColor>

/// The painting shared by the rows of all lists.
namespace driftbox::RowPainting {

/// Paints the divider and the highlight of a hovered or selected row. Then translates the painter
/// to the row's origin and clips to the row: call it between `save` and `restore`.
void paintBackground(QPainter& painter, const QRect& rect, const RowLayout& layout,
                     const RowState& state);

/// `button` is an index into the delegate's buttons.
void paintButton(QPainter& painter, const QRect& area, const QString& systemImage,
                 const QColor& color, const RowState& state, int button);

/// The width of a time, the same for all times, so that the rows' texts are aligned.
[[nodiscard]] int timeWidth();
/// `time` is formatted as "12-31 23:59:59".
void paintTime(QPainter& painter, const QRectF& area, const QString& time);

} // namespace driftbox::RowPainting
