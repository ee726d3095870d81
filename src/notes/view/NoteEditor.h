#pragma once

#include "ui/controls/OverlayScrollBar.h"
#include "ui/controls/PlainTextEditor.h"
#include "ui/window/DragStart.h"

namespace driftbox {

class StickyNoteViewModel;

/// The editor for the text of a note, with a transparent background.
class NoteEditor final : public PlainTextEditor
{
    Q_OBJECT

public:
    /// The space for the scroll bar beside the text, in points.
    static constexpr int rightMargin = OverlayScrollBar::thickness;

    /// All arguments must outlive the editor.
    NoteEditor(StickyNoteViewModel& viewModel, Pasteboard& pasteboard, SelectedText& selectedText,
               QWidget* parent);

Q_SIGNALS:
    /// The user is dragging the mouse outside of the text.
    void backgroundDragged();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void report();
    void showText();
    void updateShaping();
    void showColor();
    void showZoom();
    /// The line that is clipped by the lower edge, unless it is the first visible one.
    [[nodiscard]] QRectF clippedLine() const;
    [[nodiscard]] bool isBelowText(QPoint position) const;

    StickyNoteViewModel& m_viewModel;
    OverlayScrollBar* m_scrollBar;
    DragStart m_drag;                   ///< of the window, outside of the text
    bool m_isShapingSimplified = false; ///< because of a very long paragraph
    bool m_isMovingWindow = false;      ///< the press has become a drag of the window
};

} // namespace driftbox
