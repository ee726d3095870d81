#include "app/AppDelegate.h"

#include "app/AppCoordinator.h"
#include "markdown/MarkdownFiles.h"
#include "markdown/MarkdownReaderCoordinator.h"
#include "platform/InstanceLink.h"

#include <QtCore/QLoggingCategory>
#include <QtGui/QGuiApplication>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(appDelegateLog, "AppDelegate")

// Also handles folders, whose addresses may end with a slash.
QString lastPathComponent(const QUrl& document)
{
    return document.adjusted(QUrl::StripTrailingSlash).fileName();
}

} // namespace

AppDelegate::AppDelegate(AppCoordinator& coordinator, InstanceLink& link, QObject* parent)
    : QObject(parent)
    , m_coordinator(coordinator)
    , m_link(link)
{
    QGuiApplication::setQuitOnLastWindowClosed(false);
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
    QList<QUrl> files;
    QStringList names;
    for (const QUrl& document : documents) {
        if (!document.isLocalFile())
            continue;
        files << document;
        names << lastPathComponent(document);
    }
    qCWarning(appDelegateLog).noquote() << u"kAEOpenDocuments: "_s + names.join(u", "_s);
    for (const QUrl& file : files) {
        if (isMarkdownFile(file))
            m_coordinator.markdownReader().open(file);
    }
}

} // namespace driftbox
