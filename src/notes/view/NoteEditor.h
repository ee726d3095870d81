#pragma once

#include "ui/controls/OverlayScrollBar.h"
#include "ui/controls/PlainTextEditor.h"
#include "ui/window/DragStart.h"

namespace driftbox {

class StickyNoteViewModel;

/// The text of a note, editable, on a transparent ground.
class NoteEditor final : public PlainTextEditor
{
    Q_OBJECT

public:
    /// Behind the text, for a scroll bar.
    static constexpr int rightMargin = OverlayScrollBar::thickness;

    /// All must outlive the editor.
    NoteEditor(StickyNoteViewModel& viewModel, Pasteboard& pasteboard, SelectedText& selectedText,
               QWidget* parent);

Q_SIGNALS:
    /// The mouse is being dragged where there is no text.
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
    void chooseSetting();
    void showColor();
    void showZoom();
    /// The line that the lower edge cuts, unless it is the first one.
    [[nodiscard]] QRectF cutLine() const;
    [[nodiscard]] bool isBelowText(QPoint position) const;

    StickyNoteViewModel& m_viewModel;
    OverlayScrollBar* m_scrollBar;
    DragStart m_drag;            ///< of the window, where there is no text
    bool m_isSetPlainly = false; ///< for the sake of a very long paragraph
    bool m_isHandedOver = false; ///< the press has become a drag of the window
};

} // namespace driftbox
