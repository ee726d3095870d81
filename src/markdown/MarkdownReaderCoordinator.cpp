#include "markdown/MarkdownReaderCoordinator.h"

#include "markdown/MarkdownReaderViewModel.h"
#include "markdown/MarkdownReaderWindow.h"
#include "markdown/MarkdownReaderWindowController.h"
#include "markdown/ReaderLog.h"

#include <QtCore/QDir>
#include <QtCore/QPointer>
#include <QtCore/QTimer>

using namespace Qt::StringLiterals;

namespace driftbox {

QUrl standardizedFileURL(const QUrl& url)
{
    return QUrl::fromLocalFile(QDir::cleanPath(url.toLocalFile()));
}

MarkdownReaderCoordinator::MarkdownReaderCoordinator(const Services& services, QObject* parent)
    : QObject(parent)
    , m_services(services)
{
}

MarkdownReaderCoordinator::~MarkdownReaderCoordinator()
{
    for (const auto& [key, controller] : m_controllers)
        controller->viewModel().save();
}

void MarkdownReaderCoordinator::open(const QUrl& url)
{
    const QUrl key = standardizedFileURL(url);
    const QString fragment = url.fragment(QUrl::FullyEncoded);
    if (const auto found = m_controllers.find(key); found != m_controllers.end()) {
        found->second->showWindow(fragment);
        return;
    }

    auto viewModel = std::make_unique<MarkdownReaderViewModel>(key, m_services.fileSystem);
    viewModel->load();
    const QPointer self(this);
    auto controller = std::make_unique<MarkdownReaderWindowController>(
        std::move(viewModel), m_services.windows, [self](const QUrl& document) {
            if (self)
                self->open(document);
        });
    controller->setOnClose([self, key] {
        if (self)
            self->forget(key);
    });
    auto& stored = *m_controllers.emplace(key, std::move(controller)).first->second;
    stored.showWindow(fragment);
    qCInfo(readerLog).noquote() << u"Opened %1"_s.arg(stored.viewModel().displayName());
}

void MarkdownReaderCoordinator::openViaPanel()
{
    m_services.openPanel.run([self = QPointer(this)](const QUrl& url) {
        if (self)
            self->open(url);
    });
}

void MarkdownReaderCoordinator::forget(const QUrl& key)
{
    const auto found = m_controllers.find(key);
    if (found == m_controllers.end())
        return;
    m_closing.push_back(std::move(found->second));
    m_controllers.erase(found);
    QTimer::singleShot(0, this, [this] { m_closing.clear(); });
}

} // namespace driftbox
