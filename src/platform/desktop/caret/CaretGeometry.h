#pragma once

#include "platform/Screens.h"
#include "platform/desktop/caret/AccessibleObject.h"

#include <optional>
#include <vector>

#include <QtCore/QHash>
#include <QtCore/QRect>
#include <QtCore/QRectF>
#include <QtCore/QString>

/// Works out where the caret is from what an application tells about its text. Pure functions.
///
/// What real applications answer:
/// - Qt 5 and 6 have no extents for the place behind the last character, GTK 3 has;
/// - an empty element has none anywhere under Qt;
/// - in Qt's plain text editor every paragraph claims the place of the first one, less one pixel
///   for each line that is scrolled out of sight;
/// - every one of them speaks of its own points: GTK 3 divides pixels by GDK_SCALE, Qt 6 by the
///   scale it takes from the screen's resolution, Qt 5 only by QT_SCALE_FACTOR and the like.
namespace driftbox::CaretGeometry {

/// A text as its application describes it. Rectangles are in the application's own coordinates.
struct Text
{
    int caret = 0;
    int characterCount = 0;
    TextRange selection;
    QRect element;                ///< the whole element
    QRect viewport;               ///< where it shows its text; empty when that is not known
    bool afterLineBreak = false;  ///< the character before the caret ends a line
    QString leading;              ///< from the start to `leadingEnd`; empty when it is not known
    QHash<int, QRect> characters; ///< the extents of some characters; empty ones are not known
};

/// The end of the part of the text that can decide.
[[nodiscard]] int leadingEnd(const Text& text);

/// The characters whose extents decide, going by everything but `characters`.
[[nodiscard]] std::vector<int> decisiveCharacters(const Text& text);

/// The selection, or the caret as a rectangle one unit wide; none when the application cannot tell.
[[nodiscard]] std::optional<QRectF> caretRectangle(const Text& text);

/// The same window as its application and as the display server see it.
struct Window
{
    QRect reported;
    QRect device;
};

/// A rectangle in the coordinates of an application, as desktop space sees it; none when it is on
/// no screen. Without a window the application is taken to use the points of the desktop.
[[nodiscard]] std::optional<QRectF> toDesktop(const QRectF& reported,
                                              const std::optional<Window>& window,
                                              const std::vector<Screen>& screens);

} // namespace driftbox::CaretGeometry
