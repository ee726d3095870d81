#pragma once

#include "markdown/ReadingPlace.h"

#include <functional>
#include <memory>

#include <QtCore/QUrl>

namespace driftbox {

class MarkdownReaderViewModel;

/// The window of one document, with its content. Destroying it destroys the window. Main thread
/// only.
class MarkdownReaderWindow
{
public:
    MarkdownReaderWindow() = default;
    Q_DISABLE_COPY_MOVE(MarkdownReaderWindow)
    virtual ~MarkdownReaderWindow() = default;

    /// Shows the window in front of all others; typing goes to it.
    virtual void present() = 0;

    /// Scrolls the document to the place, once it is rendered.
    virtual void showPlace(const ReadingPlace& place) = 0;

    /// `shouldClose` is asked when the user closes the window, and says whether it does. The window
    /// may be destroyed once control is back in the event loop.
    virtual void setShouldClose(std::function<bool()> shouldClose) = 0;
};

/// Makes the windows of documents. Main thread only.
class MarkdownReaderWindowFactory
{
public:
    MarkdownReaderWindowFactory() = default;
    Q_DISABLE_COPY_MOVE(MarkdownReaderWindowFactory)
    virtual ~MarkdownReaderWindowFactory() = default;

    /// A window that shows `viewModel`, which outlives it, in the middle of the screen. Not shown
    /// yet. `openDocument` is called for a Markdown file that the user follows a link to.
    [[nodiscard]] virtual std::unique_ptr<MarkdownReaderWindow>
    makeWindow(MarkdownReaderViewModel& viewModel,
               std::function<void(const QUrl&)> openDocument) = 0;
};

/// Lets the user choose a Markdown file. Main thread only.
class FileChooser
{
public:
    FileChooser() = default;
    Q_DISABLE_COPY_MOVE(FileChooser)
    virtual ~FileChooser() = default;

    /// Returns at once; calls `chosen` later, unless the user cancels. While the panel is on the
    /// screen another call brings it to the front.
    virtual void run(std::function<void(const QUrl&)> chosen) = 0;
};

} // namespace driftbox
