#pragma once

#include <optional>

#include <QtWidgets/QPlainTextEdit>

namespace driftbox {

class Pasteboard;
class StickyNoteViewModel;

/// The text of a note, editable, on a transparent ground. Copying and pasting goes through the
/// program's pasteboard; there is no menu.
class NoteEditor final : public QPlainTextEdit
{
    Q_OBJECT

public:
    /// Both must outlive the editor.
    NoteEditor(StickyNoteViewModel& viewModel, Pasteboard& pasteboard, QWidget* parent);

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

private:
    void report();
    void showText();
    void showColor();
    void showZoom();
    void copySelection();
    [[nodiscard]] bool isBelowText(QPoint position) const;

    StickyNoteViewModel& m_viewModel;
    Pasteboard& m_pasteboard;
    std::optional<QPoint> m_backgroundPress;
};

} // namespace driftbox
