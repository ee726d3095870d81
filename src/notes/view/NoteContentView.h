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

/// What a note shows on its paper: the controls while the pointer is over it, its image, its text,
/// and a line with the keys. Gives its focus to the text.
class NoteContentView final : public QWidget
{
    Q_OBJECT

public:
    /// All must outlive the view.
    NoteContentView(StickyNoteViewModel& viewModel, Pasteboard& pasteboard,
                    SelectedText& selectedText, QWidget* parent);

    /// Whether the pointer is over the note.
    void setHovered(bool hovered);

Q_SIGNALS:
    /// The mouse is being dragged where there is no text and no control.
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
    NoteImageView* m_image = nullptr; ///< of image notes only
    NoteEditor* m_editor;
    QLabel* m_hint; ///< the line with the keys
    DragStart m_drag;
};

} // namespace driftbox
