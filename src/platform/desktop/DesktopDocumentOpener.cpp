#include "platform/desktop/DesktopDocumentOpener.h"

#include "platform/desktop/AccessibilitySettings.h"

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtGui/QDesktopServices>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

// The file manager may have to be started first.
constexpr int fileManagerTimeoutMs = 10'000;

void openFolderOf(const QUrl& file)
{
    QDesktopServices::openUrl(file.adjusted(QUrl::RemoveFilename));
}

} // namespace

DesktopDocumentOpener::DesktopDocumentOpener(const QDBusConnection& sessionBus)
    : m_bus(sessionBus)
{
}

Expected<void> DesktopDocumentOpener::open(const QUrl& url)
{
    if (QDesktopServices::openUrl(url))
        return {};
    return Error{u"No program opens %1"_s.arg(url.toDisplayString())};
}

void DesktopDocumentOpener::reveal(const QUrl& file)
{
    auto call = QDBusMessage::createMethodCall(u"org.freedesktop.FileManager1"_s,
                                               u"/org/freedesktop/FileManager1"_s,
                                               u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    const QString startupId; // there is none for this action
    call << QStringList(file.toString(QUrl::FullyEncoded)) << startupId;
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call, fileManagerTimeoutMs));
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [file](QDBusPendingCallWatcher* finished) {
                         finished->deleteLater();
                         if (finished->isError())
                             openFolderOf(file);
                     });
}

Expected<void> DesktopDocumentOpener::openAccessibilitySettings()
{
    return startAccessibilitySettings();
}

} // namespace driftbox
