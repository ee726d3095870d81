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

/// Finds the place for the panel beside the text caret. Main thread only; all lengths in points.
class CursorLocator
{
public:
    /// The panel's lower left corner in screen space; none when there is no caret to be had or it
    /// is on no screen.
    using Answer = std::function<void(std::optional<QPointF>)>;

    /// Both arguments must outlive the locator.
    CursorLocator(CaretLookup& caretLookup, const Screens& screens);

    /// Calls `answer` once, within the time that the caret lookup promises, perhaps before this
    /// returns. Nothing is called once `owner` has been destroyed.
    void panelOrigin(QSizeF panelSize, QObject* owner, Answer answer) const;

    /// The place for a caret rectangle that has its origin at the top left corner of the primary
    /// screen, y growing downwards: under the caret, left edges aligned, and moved as far as it
    /// takes to stay on the visible part of the caret's screen; above the caret where there is no
    /// room under it.
    [[nodiscard]] static std::optional<QPointF>
    originFromCaretRect(const QRectF& caret, QSizeF panelSize, const std::vector<Screen>& screens);

private:
    CaretLookup& m_caretLookup;
    const Screens& m_screens;
};

} // namespace driftbox
