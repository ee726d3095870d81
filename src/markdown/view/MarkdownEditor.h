#pragma once

#include "ui/controls/PlainTextEditor.h"

#include <optional>

namespace driftbox {

class MarkdownReaderViewModel;

/// An editor of a document's source. Every change is applied to the document at once.
class MarkdownEditor final : public PlainTextEditor
{
    Q_OBJECT

public:
    /// All must outlive the editor.
    MarkdownEditor(MarkdownReaderViewModel& viewModel, Pasteboard& pasteboard,
                   SelectedText& selectedText, QWidget* parent);

    /// Places the cursor in the line, which becomes the topmost one when the editor is shown.
    void showLine(int line);

    /// The topmost visible line, unless the editor has not been scrolled.
    [[nodiscard]] std::optional<int> lineScrolledTo() const;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] QString markdown() const;

    MarkdownReaderViewModel& m_viewModel;
    bool m_hasWindowsLineEndings;
    std::optional<int> m_lineToShow; ///< until the editor is shown
    int m_firstTopLine = 0;
};

} // namespace driftbox
