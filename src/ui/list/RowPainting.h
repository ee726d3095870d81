#pragma once

#include "ui/list/RowDelegate.h"
#include "ui/list/RowLayout.h"

#include <QtGui/QColor>

/// What the rows of all lists have in common to the eye.
namespace driftbox::RowPainting {

/// What lies behind all else in a row: the line beneath it, and what shows that it has the pointer
/// or is selected. From then on the painter's origin is that of the row, outside of which nothing
/// is drawn. To be called between `save` and `restore`.
void paintGround(QPainter& painter, const QRect& rect, const RowLayout& layout,
                 const RowState& state);

/// `button` is counted as the delegate does.
void paintButton(QPainter& painter, const QRect& area, const QString& systemImage,
                 const QColor& color, const RowState& state, int button);

/// What a time takes: the same for every one, so that all rows agree on the place of their texts.
[[nodiscard]] int timeWidth();
/// `time` is as "12-31 23:59:59".
void paintTime(QPainter& painter, const QRectF& area, const QString& time);

} // namespace driftbox::RowPainting
