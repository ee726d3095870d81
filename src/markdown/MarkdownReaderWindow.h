#pragma once

#include "markdown/ReadingPlace.h"

#include <functional>
#include <memory>

#include <QtCore/QUrl>

namespace driftbox {

class MarkdownReaderViewModel;

/// A document's window and its content. Destroying it destroys the window. Main thread only.
class MarkdownReaderWindow
{
public:
    MarkdownReaderWindow() = default;
    Q_DISABLE_COPY_MOVE(MarkdownReaderWindow)
    virtual ~MarkdownReaderWindow() = default;

    /// Shows and raises the window and gives it the keyboard focus.
    virtual void present() = 0;

    /// Scrolls the document to the place as soon as that has been rendered.
    virtual void showPlace(const ReadingPlace& place) = 0;

    /// `shouldClose` is called when the user closes the window, and returns whether it may close.
    /// The window may be destroyed once control returns to the event loop.
    virtual void setShouldClose(std::function<bool()> shouldClose) = 0;
};

/// Creates the windows of documents. Main thread only.
class MarkdownReaderWindowFactory
{
public:
    MarkdownReaderWindowFactory() = default;
    Q_DISABLE_COPY_MOVE(MarkdownReaderWindowFactory)
    virtual ~MarkdownReaderWindowFactory() = default;

    /// Creates a window for `viewModel`, which must outlive it, centered on the screen and still
    /// hidden. `openDocument` is called when the user follows a link to a Markdown file.
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

    /// Returns at once; calls `chosen` later, unless the user cancels. While the dialog is open,
    /// another call raises it.
    virtual void run(std::function<void(const QUrl&)> chosen) = 0;
};

} // namespace driftbox
