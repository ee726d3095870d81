#pragma once

#include <functional>
#include <memory>

#include <QtCore/QUrl>

namespace driftbox {

class MarkdownReaderViewModel;
class MarkdownReaderWindow;
class MarkdownReaderWindowFactory;

/// Owns the document and the window of one open file, and saves the document as the window closes.
/// Main thread only.
class MarkdownReaderWindowController
{
public:
    /// The window is made and not shown yet. `openDocument` as for MarkdownReaderWindowFactory.
    MarkdownReaderWindowController(std::unique_ptr<MarkdownReaderViewModel> viewModel,
                                   MarkdownReaderWindowFactory& windows,
                                   std::function<void(const QUrl&)> openDocument);
    ~MarkdownReaderWindowController();
    Q_DISABLE_COPY_MOVE(MarkdownReaderWindowController)

    [[nodiscard]] MarkdownReaderViewModel& viewModel() { return *m_viewModel; }

    /// Called when the window closes.
    void setOnClose(std::function<void()> onClose) { m_onClose = std::move(onClose); }

    /// Shows the window in front of all others, with the document at the part that the fragment of
    /// its address names, if there is one.
    void showWindow(const QString& fragment);

    /// Saves and reports the close. The window always closes, even when the saving failed.
    bool windowShouldClose();

private:
    std::unique_ptr<MarkdownReaderViewModel> m_viewModel;
    std::unique_ptr<MarkdownReaderWindow> m_window;
    std::function<void()> m_onClose;
};

} // namespace driftbox
