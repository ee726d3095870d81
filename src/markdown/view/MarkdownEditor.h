#pragma once

#include <QtWidgets/QPlainTextEdit>

namespace driftbox {

class MarkdownReaderViewModel;
class Pasteboard;

/// The source of a document. Every change goes into the document at once. Copying and pasting goes
/// through the program's pasteboard; there is no menu.
class MarkdownEditor final : public QPlainTextEdit
{
    Q_OBJECT

public:
    /// Both must outlive the editor.
    MarkdownEditor(MarkdownReaderViewModel& viewModel, Pasteboard& pasteboard, QWidget* parent);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    [[nodiscard]] QString text() const;
    void copySelection();

    MarkdownReaderViewModel& m_viewModel;
    Pasteboard& m_pasteboard;
    bool m_hasWindowsLineEnds;
};

} // namespace driftbox
