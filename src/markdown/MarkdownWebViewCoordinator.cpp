#include "markdown/MarkdownWebViewCoordinator.h"

#include "markdown/MarkdownFiles.h"
#include "platform/DocumentOpener.h"

#include <algorithm>

#include <QtCore/QFileInfo>
#include <QtCore/QMetaObject>
#include <QtCore/QStringList>
#include <QtCore/QUrl>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

bool canStartProgram(const QFileInfo& file)
{
    return file.suffix().toLower() == u"desktop" || (file.isFile() && file.isExecutable());
}

// Line numbers from the page cannot be trusted.
ReadingPlace placeIn(const QVariantMap& body)
{
    const auto line = [&body](const QString& name) {
        return std::max(0, body.value(name).toInt());
    };
    return {.line = line(u"line"_s),
            .offset = body.value(u"offset"_s).toDouble(),
            .sourceLine = line(u"sourceLine"_s)};
}

} // namespace

MarkdownWebViewCoordinator::MarkdownWebViewCoordinator(
    DocumentOpener& opener, std::function<void(const QUrl&)> openDocument, QObject* parent)
    : QObject(parent)
    , m_opener(opener)
    , m_openDocument(std::move(openDocument))
{
}

void MarkdownWebViewCoordinator::push(const QString& markdown, const QString& theme)
{
    m_pendingMarkdown = markdown;
    m_pendingTheme = theme;
    if (m_isReady)
        scheduleRender(markdown, theme);
}

void MarkdownWebViewCoordinator::didFinishNavigation()
{
    m_isReady = true;
    if (m_place != ReadingPlace())
        schedulePlace();
    scheduleRender(m_pendingMarkdown, m_pendingTheme);
}

void MarkdownWebViewCoordinator::showPlace(const ReadingPlace& place)
{
    m_place = place;
    if (m_isReady)
        schedulePlace();
}

void MarkdownWebViewCoordinator::schedulePlace()
{
    QMetaObject::invokeMethod(
        this,
        [this, place = m_place] {
            if (m_page)
                m_page->showPlace(place);
        },
        Qt::QueuedConnection);
}

void MarkdownWebViewCoordinator::scheduleRender(const QString& markdown, const QString& theme)
{
    QMetaObject::invokeMethod(
        this,
        [this, markdown, theme] {
            if (m_page)
                m_page->renderMarkdown(markdown, theme);
        },
        Qt::QueuedConnection);
}

void MarkdownWebViewCoordinator::didReceiveMessage(const QString& name, const QVariant& body)
{
    if (name == u"readingPosition")
        m_place = placeIn(body.toMap());
    if (name != u"openExternal" || body.typeId() != QMetaType::QString)
        return;
    const QUrl url(body.toString(), QUrl::StrictMode);
    static const QStringList externalSchemes{u"http"_s, u"https"_s, u"mailto"_s};
    if (!url.isValid())
        return;
    if (externalSchemes.contains(url.scheme()))
        (void)m_opener.open(url);
    else if (url.isLocalFile() && url.host().isEmpty())
        openFile(url.adjusted(QUrl::RemoveQuery));
}

void MarkdownWebViewCoordinator::openFile(const QUrl& address)
{
    const QUrl url = address.adjusted(QUrl::RemoveFragment);
    if (isMarkdownFile(url))
        m_openDocument(address); // including its fragment
    else if (canStartProgram(QFileInfo(url.toLocalFile())))
        m_opener.reveal(url);
    else
        (void)m_opener.open(url);
}

} // namespace driftbox
