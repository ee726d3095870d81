#pragma once

#include "panel/view/DragStart.h"
#include "panel/view/OverlayScrollBar.h"

#include <QtGui/QTextCursor>
#include <QtWidgets/QPlainTextEdit>

namespace driftbox {

class Pasteboard;
class SelectedText;
class StickyNoteViewModel;

/// The text of a note, editable, on a transparent ground. Copying and pasting goes through the
/// program's pasteboard, a click with the middle button pastes what is selected somewhere; there is
/// no menu.
class NoteEditor final : public QPlainTextEdit
{
    Q_OBJECT

public:
    /// Behind the text, for a scroll bar.
    static constexpr int rightMargin = OverlayScrollBar::thickness;

    /// All must outlive the editor.
    NoteEditor(StickyNoteViewModel& viewModel, Pasteboard& pasteboard, SelectedText& selectedText,
               QWidget* parent);

    [[nodiscard]] QString text() const;
    /// The text that a part of the document stands for.
    [[nodiscard]] static QString textOf(QString raw);

Q_SIGNALS:
    /// The mouse is being dragged where there is no text.
    void backgroundDragged();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void report();
    void showText();
    void chooseSetting();
    void showColor();
    void showZoom();
    void copySelection();
    void insert(const QString& text, QTextCursor place);
    /// The line that the lower edge cuts, unless it is the first one.
    [[nodiscard]] QRectF cutLine() const;
    [[nodiscard]] bool isBelowText(QPoint position) const;

    StickyNoteViewModel& m_viewModel;
    Pasteboard& m_pasteboard;
    SelectedText& m_selectedText;
    OverlayScrollBar* m_scrollBar;
    DragStart m_drag;            ///< of the window, where there is no text
    bool m_isSetPlainly = false; ///< for the sake of a very long paragraph
    bool m_isHandedOver = false; ///< the press has become a drag of the window
};

} // namespace driftbox
