#include "app/AppDelegate.h"

#include "app/AppCoordinator.h"
#include "markdown/MarkdownFiles.h"
#include "markdown/MarkdownReaderCoordinator.h"
#include "platform/InstanceLink.h"

#include <QtCore/QLoggingCategory>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(log, "AppDelegate")

} // namespace

AppDelegate::AppDelegate(AppCoordinator& coordinator, InstanceLink& link, QObject* parent)
    : QObject(parent)
    , m_coordinator(coordinator)
    , m_link(link)
{
}

void AppDelegate::applicationDidFinishLaunching(const QList<QUrl>& documents)
{
    m_coordinator.start();
    connect(&m_link, &InstanceLink::documentsOpened, this, &AppDelegate::handleOpenDocuments);
    connect(&m_link, &InstanceLink::activated, &m_coordinator, &AppCoordinator::showPanel);
    if (!documents.isEmpty())
        handleOpenDocuments(documents);
}

void AppDelegate::handleOpenDocuments(const QList<QUrl>& documents)
{
    QStringList names;
    for (const QUrl& document : documents)
        names << document.fileName();
    qCWarning(log).noquote() << u"kAEOpenDocuments: "_s + names.join(u", "_s);
    for (const QUrl& document : documents) {
        if (document.isLocalFile() && isMarkdownFile(document))
            m_coordinator.markdownReader().open(document);
    }
}

} // namespace driftbox
