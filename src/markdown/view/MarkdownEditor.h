#pragma once

#include "ui/controls/PlainTextEditor.h"

#include <optional>

namespace driftbox {

class MarkdownReaderViewModel;

/// The source of a document. Every change goes into the document at once.
class MarkdownEditor final : public PlainTextEditor
{
    Q_OBJECT

public:
    /// All must outlive the editor.
    MarkdownEditor(MarkdownReaderViewModel& viewModel, Pasteboard& pasteboard,
                   SelectedText& selectedText, QWidget* parent);

    /// Puts the cursor into the line, and the line to the top as the editor comes onto the screen.
    void showLine(int line);

    /// The line at the top, unless that is still the one that was there at first.
    [[nodiscard]] std::optional<int> lineScrolledTo() const;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] QString markdown() const;

    MarkdownReaderViewModel& m_viewModel;
    bool m_hasWindowsLineEnds;
    std::optional<int> m_lineToShow; ///< until the editor is on the screen
    int m_firstTopLine = 0;
};

} // namespace driftbox
