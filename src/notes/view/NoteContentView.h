#pragma once

#include "ui/window/DragStart.h"

#include <QtWidgets/QWidget>

class QLabel;

namespace driftbox {

class NoteControlRow;
class NoteEditor;
class NoteImageView;
class Pasteboard;
class SelectedText;
class StickyNoteViewModel;

/// The content of a note: the controls while the pointer is over it, its image, its text, and a
/// line that lists the keyboard shortcuts. The text is its focus proxy.
class NoteContentView final : public QWidget
{
    Q_OBJECT

public:
    /// All arguments must outlive the view.
    NoteContentView(StickyNoteViewModel& viewModel, Pasteboard& pasteboard,
                    SelectedText& selectedText, QWidget* parent);

    /// Whether the pointer is over the note.
    void setHovered(bool hovered);

Q_SIGNALS:
    /// The user is dragging the mouse outside of text and controls.
    void backgroundDragged();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void showImage(StickyNoteViewModel& viewModel);
    void arrange();

    NoteControlRow* m_controls;
    NoteImageView* m_image = nullptr; ///< null for text notes
    NoteEditor* m_editor;
    QLabel* m_hint; ///< the keyboard shortcuts
    DragStart m_drag;
};

} // namespace driftbox
