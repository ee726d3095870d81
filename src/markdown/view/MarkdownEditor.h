#pragma once

#include <optional>

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

    /// Puts the cursor into the line, and the line to the top as the editor comes onto the screen.
    void showLine(int line);

    /// The line at the top, unless that is still the one that was there at first.
    [[nodiscard]] std::optional<int> lineScrolledTo() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    [[nodiscard]] QString text() const;
    void copySelection();

    MarkdownReaderViewModel& m_viewModel;
    Pasteboard& m_pasteboard;
    bool m_hasWindowsLineEnds;
    std::optional<int> m_lineToShow; ///< until the editor is on the screen
    int m_firstTopLine = 0;
};

} // namespace driftbox
