#pragma once

#include <functional>
#include <memory>

#include <QtCore/QUrl>

namespace driftbox {

class MarkdownReaderViewModel;
class MarkdownReaderWindow;
class MarkdownReaderWindowFactory;

/// Owns the document and the window of one open file, and saves the document when the window
/// closes. Main thread only.
class MarkdownReaderWindowController
{
public:
    /// Creates the window without showing it. For `openDocument` see MarkdownReaderWindowFactory.
    MarkdownReaderWindowController(std::unique_ptr<MarkdownReaderViewModel> viewModel,
                                   MarkdownReaderWindowFactory& windows,
                                   std::function<void(const QUrl&)> openDocument);
    ~MarkdownReaderWindowController();
    Q_DISABLE_COPY_MOVE(MarkdownReaderWindowController)

    [[nodiscard]] MarkdownReaderViewModel& viewModel() { return *m_viewModel; }

    /// Called when the window closes.
    void setOnClose(std::function<void()> onClose) { m_onClose = std::move(onClose); }

    /// Shows and raises the window, scrolled to the given fragment of the document's address unless
    /// that is empty.
    void showWindow(const QString& fragment);

    /// Saves the document and reports the close. The window always closes, even when saving fails.
    bool windowShouldClose();

private:
    std::unique_ptr<MarkdownReaderViewModel> m_viewModel;
    std::unique_ptr<MarkdownReaderWindow> m_window;
    std::function<void()> m_onClose;
};

} // namespace driftbox
