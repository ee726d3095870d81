#include "panel/CursorLocator.h"

#include "platform/CaretLookup.h"
#include "platform/ScreenGeometry.h"
#include "platform/ScreenSpace.h"
#include "platform/Screens.h"

#include <algorithm>
#include <utility>

namespace driftbox {

namespace {

constexpr qreal gap = 6.0;              // between the caret and the panel
constexpr qreal degenerateExtent = 1.0; // reported by applications that do not know the caret

// A caret is often at most one point wide, but as high as a line.
bool isDegenerate(const QRectF& caret)
{
    return !(caret.width() > degenerateExtent || caret.height() > degenerateExtent);
}

// The left edge wins when the panel is wider than the screen.
qreal clampedX(qreal x, qreal width, const QRectF& visibleFrame)
{
    return std::max(std::min(x, visibleFrame.right() - width), visibleFrame.left());
}

} // namespace

CursorLocator::CursorLocator(CaretLookup& caretLookup, const Screens& screens)
    : m_caretLookup(caretLookup)
    , m_screens(screens)
{
}

void CursorLocator::panelOrigin(QSizeF panelSize, QObject* owner, Answer answer) const
{
    m_caretLookup.caretRectangle(
        owner, [&screens = m_screens, panelSize,
                answer = std::move(answer)](const std::optional<QRectF>& caret) {
            if (!caret || isDegenerate(*caret))
                answer(std::nullopt);
            else
                answer(originFromCaretRect(*caret, panelSize, screens.screens()));
        });
}

std::optional<QPointF> CursorLocator::originFromCaretRect(const QRectF& caret, QSizeF panelSize,
                                                          const std::vector<Screen>& screens)
{
    if (screens.empty())
        return std::nullopt;
    const QRectF caretOnScreen = ScreenSpace::flipped(caret, screens.front().frame.bottom());
    const Screen* screen = ScreenGeometry::screenContaining(caretOnScreen.center(), screens);
    if (!screen)
        return std::nullopt;

    // In screen space the top of a rectangle is its lower edge, and bottom() its upper one.
    const QRectF& visibleFrame = screen->visibleFrame;
    const qreal x = clampedX(caret.left(), panelSize.width(), visibleFrame);
    const qreal below = caretOnScreen.top() - gap - panelSize.height();
    if (below >= visibleFrame.top())
        return QPointF(x, below);
    const qreal above = caretOnScreen.bottom() + gap;
    return QPointF(x, std::min(above, visibleFrame.bottom() - panelSize.height()));
}

} // namespace driftbox
