#include "platform/desktop/caret/CaretGeometry.h"

#include "platform/ScreenSpace.h"

#include <algorithm>
#include <cmath>

#include <QtCore/QPointF>

namespace driftbox::CaretGeometry {

namespace {

constexpr qreal caretWidth = 1;
// For elements without information about their text: those up to this height hold a single line.
constexpr int singleLineHeight = 48;
constexpr int assumedLineHeight = 20;

bool isKnown(const QRect& extents)
{
    return extents.height() > 1;
}

int paragraphStart(const Text& text, int offset)
{
    return offset > 0 ? int(text.leading.lastIndexOf(u'\n', offset - 1)) + 1 : 0;
}

// How far below its reported position a character is, where every paragraph reports the position of
// the first.
int missingHeight(const Text& text, int offset)
{
    const QRect first = text.characters.value(0);
    const QRect start = text.characters.value(paragraphStart(text, offset));
    const auto paragraphs = text.leading.left(offset).count(u'\n');
    if (paragraphs == 0 || !isKnown(first) || !isKnown(start) || start.y() != first.y())
        return 0;
    const int scrolledLines = text.viewport.isEmpty() ? 0 : text.viewport.y() - first.y();
    return int(paragraphs - scrolledLines) * first.height() + scrolledLines;
}

// Empty when unknown.
QRect charactersExtents(const Text& text, int offset)
{
    QRect extents = text.characters.value(offset);
    const int missing = isKnown(extents) ? missingHeight(text, offset) : 0;
    if (missing == 0)
        return extents;
    extents.translate(0, missing);
    // Paragraphs of several lines make this inexact, so it is clamped to the viewport.
    const int maxTop = text.viewport.y() + text.viewport.height() - extents.height();
    if (!text.viewport.isEmpty() && maxTop > text.viewport.y())
        extents.moveTop(std::clamp(extents.y(), text.viewport.y(), maxTop));
    return extents;
}

QRectF caretAt(qreal x, qreal y, qreal height)
{
    return {x, y, caretWidth, height};
}

// Line breaks have no width, and QRect::united() ignores rectangles without width.
QRect atLeastCaretWide(const QRect& extents)
{
    return {extents.topLeft(), extents.size().expandedTo(QSize(int(caretWidth), 0))};
}

// The bounding box of both ends of the selection, clipped to the element: lines differ in width.
std::optional<QRectF> selectionRectangle(const Text& text)
{
    const QRect first = charactersExtents(text, text.selection.start);
    const QRect last = charactersExtents(text, text.selection.end - 1);
    if (!isKnown(first) || !isKnown(last))
        return std::nullopt;
    const QRect box = atLeastCaretWide(first).united(atLeastCaretWide(last));
    const QRect visible = text.element.isEmpty() ? box : box.intersected(text.element);
    return QRectF(visible.isEmpty() ? box : visible);
}

std::optional<QRectF> rectangleOfCharacters(const Text& text)
{
    const QRect behind = charactersExtents(text, text.caret);
    if (isKnown(behind))
        return caretAt(behind.x(), behind.y(), behind.height());

    const QRect before = charactersExtents(text, text.caret - 1);
    if (!isKnown(before))
        return std::nullopt;
    if (!text.afterLineBreak)
        return caretAt(before.x() + before.width(), before.y(), before.height());

    // The last line is empty; it begins where the text does.
    const QRect first = charactersExtents(text, 0);
    const int lineStart = isKnown(first) ? first.x() : text.element.x();
    return caretAt(lineStart, before.y() + before.height(), before.height());
}

std::optional<QRectF> rectangleOfElement(const Text& text)
{
    const QRect& element = text.element;
    const bool isSingleLine = element.height() <= singleLineHeight;
    if (element.isEmpty() || (text.characterCount > 0 && !isSingleLine))
        return std::nullopt;
    return caretAt(element.x(), element.y(), isSingleLine ? element.height() : assumedLineHeight);
}

// The quotient of the widths is inexact when only one of the two includes decorations.
qreal scaleOf(const Window& window)
{
    constexpr qreal step = 0.25;
    constexpr qreal tolerance = 0.06;
    const qreal quotient = qreal(window.device.width()) / window.reported.width();
    const qreal likely = std::max(step, std::round(quotient / step) * step);
    return std::abs(quotient - likely) <= tolerance * likely ? likely : quotient;
}

QRectF desktopFrame(const Screen& screen, const std::vector<Screen>& screens)
{
    return ScreenSpace::flipped(screen.frame, screens.front().frame.height());
}

// Converts a point from desktop space to device space; none outside all screens.
std::optional<QPointF> deviceFromDesktop(QPointF point, const std::vector<Screen>& screens)
{
    for (const Screen& screen : screens) {
        const QRectF frame = desktopFrame(screen, screens);
        if (frame.contains(point))
            return screen.deviceFrame.topLeft() + (point - frame.topLeft()) * screen.scale;
    }
    return std::nullopt;
}

// Some toolkits, like this program's, do not scale the screens' origins, others do. The window,
// whose real position is known, tells them apart.
bool usesDesktopPoints(const Window& window, qreal scale, const std::vector<Screen>& screens)
{
    const auto asDesktop = deviceFromDesktop(window.reported.center(), screens);
    if (!asDesktop)
        return false;
    const QPointF truth = window.device.center();
    const QPointF asScaled = QPointF(window.reported.center()) * scale;
    return (*asDesktop - truth).manhattanLength() <= (asScaled - truth).manhattanLength();
}

} // namespace

int leadingEnd(const Text& text)
{
    return std::max(text.caret, text.selection.isEmpty() ? 0 : text.selection.end);
}

std::vector<int> decisiveCharacters(const Text& text)
{
    std::vector<int> offsets = {0, text.caret - 1, text.caret};
    if (!text.selection.isEmpty())
        offsets = {0, text.selection.start, text.selection.end - 1};
    for (const int offset : std::vector(offsets))
        offsets.push_back(paragraphStart(text, offset));

    std::erase_if(offsets, [](int offset) { return offset < 0; });
    std::ranges::sort(offsets);
    offsets.erase(std::unique(offsets.begin(), offsets.end()), offsets.end());
    return offsets;
}

std::optional<QRectF> caretRectangle(const Text& text)
{
    if (!text.selection.isEmpty())
        return selectionRectangle(text);
    if (const auto rectangle = rectangleOfCharacters(text))
        return rectangle;
    return rectangleOfElement(text);
}

std::optional<QRectF> toDesktop(const QRectF& reported, const std::optional<Window>& window,
                                const std::vector<Screen>& screens)
{
    if (!window || window->reported.isEmpty() || window->device.isEmpty())
        return reported;
    const qreal scale = scaleOf(*window);
    if (usesDesktopPoints(*window, scale, screens))
        return reported;
    return ScreenSpace::desktopFromDevice(
        QRectF(reported.topLeft() * scale, reported.size() * scale), screens);
}

} // namespace driftbox::CaretGeometry
