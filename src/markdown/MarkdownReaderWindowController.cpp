#include "markdown/MarkdownReaderWindowController.h"

#include "markdown/MarkdownReaderViewModel.h"
#include "markdown/MarkdownReaderWindow.h"

namespace driftbox {

MarkdownReaderWindowController::MarkdownReaderWindowController(
    std::unique_ptr<MarkdownReaderViewModel> viewModel, MarkdownReaderWindowFactory& windows,
    std::function<void(const QUrl&)> openDocument)
    : m_viewModel(std::move(viewModel))
    , m_window(windows.makeWindow(*m_viewModel, std::move(openDocument)))
{
    m_window->setShouldClose([this] { return windowShouldClose(); });
}

MarkdownReaderWindowController::~MarkdownReaderWindowController() = default;

void MarkdownReaderWindowController::showWindow(const QString& fragment)
{
    if (!fragment.isEmpty())
        m_window->showPlace({.fragment = fragment});
    m_window->present();
}

bool MarkdownReaderWindowController::windowShouldClose()
{
    m_viewModel->save();
    if (m_onClose)
        m_onClose();
    return true;
}

} // namespace driftbox
