#pragma once

#include "markdown/MarkdownReaderWindow.h"
#include "markdown/view/ReaderServices.h"

#include <QtWidgets/QWidget>

namespace driftbox {

class MarkdownReaderView;

/// A document's window: an ordinary window with the file's name in its title bar.
class ReaderWindow final : public QWidget, public MarkdownReaderWindow
{
    Q_OBJECT

public:
    /// `viewModel` and the services must outlive the window.
    ReaderWindow(MarkdownReaderViewModel& viewModel, const ReaderServices& services,
                 std::function<void(const QUrl&)> openDocument);

    void present() override;
    void showPlace(const ReadingPlace& place) override;
    void setShouldClose(std::function<bool()> shouldClose) override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    StandardWindows& m_windows;
    MarkdownReaderView* m_view;
    std::function<bool()> m_shouldClose;
};

/// Creates reader windows.
class ReaderWindowFactory final : public MarkdownReaderWindowFactory
{
public:
    explicit ReaderWindowFactory(ReaderServices services);

    [[nodiscard]] std::unique_ptr<MarkdownReaderWindow>
    makeWindow(MarkdownReaderViewModel& viewModel,
               std::function<void(const QUrl&)> openDocument) override;

private:
    ReaderServices m_services;
};

} // namespace driftbox
