#pragma once

#include <functional>
#include <optional>
#include <vector>

#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QSizeF>

class QObject;

namespace driftbox {

class CaretLookup;
class Screens;
struct Screen;

/// Computes the position of the panel next to the text caret. All lengths are in points. Main
/// thread only.
class CursorLocator
{
public:
    /// Receives the panel's lower left corner in screen space; nullopt if the caret is unknown or
    /// not on any screen.
    using Answer = std::function<void(std::optional<QPointF>)>;

    /// Both arguments must outlive the locator.
    CursorLocator(CaretLookup& caretLookup, const Screens& screens);

    /// Calls `answer` once, within the caret lookup's timeout and possibly before this returns,
    /// unless `owner` is destroyed first.
    void panelOrigin(QSizeF panelSize, QObject* owner, Answer answer) const;

    /// The panel's position for a caret rectangle whose origin is the top left corner of the
    /// primary screen, with y pointing down: below the caret with left edges aligned, or above it
    /// if there is not enough space below, and moved to stay within the visible area of the caret's
    /// screen.
    [[nodiscard]] static std::optional<QPointF>
    originFromCaretRect(const QRectF& caret, QSizeF panelSize, const std::vector<Screen>& screens);

private:
    CaretLookup& m_caretLookup;
    const Screens& m_screens;
};

} // namespace driftbox
