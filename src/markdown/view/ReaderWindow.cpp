#include "markdown/view/ReaderWindow.h"

#include "markdown/MarkdownReaderViewModel.h"
#include "markdown/view/MarkdownReaderView.h"
#include "platform/StandardWindows.h"
#include "ui/window/WindowAccessible.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QVBoxLayout>

namespace driftbox {

namespace {

constexpr QSize contentSize(780, 640);

} // namespace

ReaderWindow::ReaderWindow(MarkdownReaderViewModel& viewModel, const ReaderServices& services,
                           std::function<void(const QUrl&)> openDocument)
    : m_windows(services.windows)
    , m_view(new MarkdownReaderView(viewModel, services, std::move(openDocument), this))
{
    readAsWindow(*this);
    setWindowTitle(viewModel.displayName());
    setAccessibleName(viewModel.displayName());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_view);
    resize(contentSize);
    winId();
    m_windows.center(*windowHandle());
}

void ReaderWindow::present()
{
    m_windows.present(*windowHandle());
}

void ReaderWindow::showPlace(const ReadingPlace& place)
{
    m_view->showPlace(place);
}

void ReaderWindow::setShouldClose(std::function<bool()> shouldClose)
{
    m_shouldClose = std::move(shouldClose);
}

void ReaderWindow::closeEvent(QCloseEvent* event)
{
    event->setAccepted(!m_shouldClose || m_shouldClose());
}

ReaderWindowFactory::ReaderWindowFactory(ReaderServices services)
    : m_services(std::move(services))
{
}

std::unique_ptr<MarkdownReaderWindow>
ReaderWindowFactory::makeWindow(MarkdownReaderViewModel& viewModel,
                                std::function<void(const QUrl&)> openDocument)
{
    return std::make_unique<ReaderWindow>(viewModel, m_services, std::move(openDocument));
}

} // namespace driftbox
