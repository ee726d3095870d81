#pragma once

#include <QtCore/QRectF>
#include <QtWidgets/QStyle>

class QPainter;
class QPalette;

/// The shapes that controls are made of. `state` tells whether the control is enabled, focused,
/// under the pointer, pressed or on.
namespace driftbox::ControlParts {

/// The round body of something to push.
void drawButton(QPainter& painter, const QRectF& frame, const QPalette& palette,
                QStyle::State state);
/// The round body of something to type into.
void drawField(QPainter& painter, const QRectF& frame, const QPalette& palette,
               QStyle::State state);
void drawCheckBox(QPainter& painter, const QRectF& frame, const QPalette& palette,
                  QStyle::State state);
void drawRadioButton(QPainter& painter, const QRectF& frame, const QPalette& palette,
                     QStyle::State state);
/// The bar along which a slider's knob runs, filled as far as `filled`.
void drawGroove(QPainter& painter, const QRectF& groove, const QRectF& filled,
                const QPalette& palette, QStyle::State state);
void drawKnob(QPainter& painter, QPointF center, const QPalette& palette, QStyle::State state);
void drawThumb(QPainter& painter, const QRectF& thumb, const QPalette& palette,
               QStyle::State state);
/// A small arrow head in the middle of `area`.
void drawChevron(QPainter& painter, const QRectF& area, Qt::ArrowType direction,
                 const QPalette& palette, QStyle::State state);

} // namespace driftbox::ControlParts
