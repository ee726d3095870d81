#pragma once

#include <QtCore/QRectF>
#include <QtWidgets/QStyle>

class QPainter;
class QPalette;

/// Paints the parts of controls. `state` says whether the control is enabled, focused, hovered,
/// pressed or on.
namespace driftbox::ControlParts {

/// The rounded body of a button.
void drawButton(QPainter& painter, const QRectF& frame, const QPalette& palette,
                QStyle::State state);
/// The rounded body of an input field.
void drawField(QPainter& painter, const QRectF& frame, const QPalette& palette,
               QStyle::State state);
void drawCheckBox(QPainter& painter, const QRectF& frame, const QPalette& palette,
                  QStyle::State state);
void drawRadioButton(QPainter& painter, const QRectF& frame, const QPalette& palette,
                     QStyle::State state);
/// The groove of a slider; `filled` is its highlighted part.
void drawGroove(QPainter& painter, const QRectF& groove, const QRectF& filled,
                const QPalette& palette, QStyle::State state);
void drawKnob(QPainter& painter, QPointF center, const QPalette& palette, QStyle::State state);
void drawThumb(QPainter& painter, const QRectF& thumb, const QPalette& palette,
               QStyle::State state);
/// A small arrow head centered in `area`.
void drawChevron(QPainter& painter, const QRectF& area, Qt::ArrowType direction,
                 const QPalette& palette, QStyle::State state);

} // namespace driftbox::ControlParts
