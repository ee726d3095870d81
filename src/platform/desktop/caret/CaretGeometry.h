#pragma once

#include "platform/Screens.h"
#include "platform/desktop/caret/AccessibleObject.h"

#include <optional>
#include <vector>

#include <QtCore/QHash>
#include <QtCore/QRect>
#include <QtCore/QRectF>
#include <QtCore/QString>

/// Computes the caret rectangle from what an application reports about its text. Pure functions.
///
/// Behavior of real applications:
/// - Qt 5 and 6 report no extents for the position after the last character; GTK 3 does.
/// - Qt reports no extents for any position in an empty element.
/// - In Qt's plain text editor every paragraph reports the position of the first one, less one
///   pixel for each line that is scrolled out of view.
/// - Each uses its own points: GTK 3 divides pixels by GDK_SCALE, Qt 6 by the scale derived from
///   the screen's resolution, Qt 5 only by QT_SCALE_FACTOR and the like.
namespace driftbox::CaretGeometry {

/// A text as reported by its application. Rectangles are in the application's own coordinates.
struct Text
{
    int caret = 0;
    int characterCount = 0;
    TextRange selection;
    QRect element;                ///< the whole element
    QRect viewport;               ///< the part that shows the text; empty when unknown
    bool afterLineBreak = false;  ///< the character before the caret ends a line
    QString leading;              ///< from the start to `leadingEnd`; empty when unknown
    QHash<int, QRect> characters; ///< the extents of some characters; empty when unknown
};

/// The end of the leading part of the text that affects the result.
[[nodiscard]] int leadingEnd(const Text& text);

/// The offsets of the characters whose extents affect the result, based on everything but
/// `characters`.
[[nodiscard]] std::vector<int> decisiveCharacters(const Text& text);

/// The selection, or the caret as a rectangle one unit wide; none when it cannot be determined.
[[nodiscard]] std::optional<QRectF> caretRectangle(const Text& text);

/// The frame of one window as reported by its application and by the display server.
struct Window
{
    QRect reported;
    QRect device;
};

/// Converts a rectangle from an application's coordinates to desktop space; none when it is on no
/// screen. Without a window the application is assumed to use desktop points.
[[nodiscard]] std::optional<QRectF> toDesktop(const QRectF& reported,
                                              const std::optional<Window>& window,
                                              const std::vector<Screen>& screens);

} // namespace driftbox::CaretGeometry
