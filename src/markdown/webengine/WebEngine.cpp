#include "markdown/webengine/WebEngine.h"

#include "core/modules/LibraryPages.h"
#include "markdown/webengine/DocumentScheme.h"
#include "markdown/webengine/WebPage.h"

#include <chrono>

#include <malloc.h>

#include <QtCore/QFile>
#include <QtWebEngineCore/QWebEngineScript>
#include <QtWebEngineCore/QWebEngineScriptCollection>
#include <QtWebEngineCore/QWebEngineSettings>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

// By then the engine has cleaned up its pages.
constexpr std::chrono::seconds idleTimeBeforeRelease{1};

QString readResource(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QWebEngineScript bridge()
{
    QWebEngineScript script;
    script.setName(u"bridge"_s);
    script.setSourceCode(readResource(u":/qtwebchannel/qwebchannel.js"_s) +
                         readResource(u":/webengine/bridge.js"_s));
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(QWebEngineScript::MainWorld);
    script.setRunsOnSubFrames(false);
    return script;
}

void restrict(QWebEngineSettings& settings)
{
    using Attribute = QWebEngineSettings::WebAttribute;
    for (const Attribute attribute :
         {Attribute::JavascriptCanOpenWindows, Attribute::JavascriptCanAccessClipboard,
          Attribute::LocalStorageEnabled, Attribute::LocalContentCanAccessRemoteUrls,
          Attribute::LocalContentCanAccessFileUrls, Attribute::HyperlinkAuditingEnabled,
          Attribute::PluginsEnabled, Attribute::FullScreenSupportEnabled,
          Attribute::ScreenCaptureEnabled, Attribute::WebGLEnabled,
          Attribute::Accelerated2dCanvasEnabled, Attribute::AutoLoadIconsForPage,
          Attribute::ErrorPageEnabled, Attribute::DnsPrefetchEnabled, Attribute::PdfViewerEnabled,
          Attribute::NavigateOnDropEnabled, Attribute::FocusOnNavigationEnabled})
        settings.setAttribute(attribute, false);
    settings.setAttribute(Attribute::ScrollAnimatorEnabled, true);
}

} // namespace

WebEngine::WebEngine()
{
    m_profile.setHttpCacheType(QWebEngineProfile::NoCache);
    m_profile.setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
    m_profile.setUrlRequestInterceptor(&m_guard);
    m_profile.installUrlSchemeHandler(DocumentScheme::name, &m_documents);
    m_profile.scripts()->insert(bridge());
    restrict(*m_profile.settings());
    m_logFilter.startupFinished();
    m_idleTimer.setSingleShot(true);
    m_idleTimer.setInterval(idleTimeBeforeRelease);
    QObject::connect(&m_idleTimer, &QTimer::timeout, &m_idleTimer, [] {
        malloc_trim(0);
        releaseLibraryPages();
    });
}

WebEngine::~WebEngine() = default;

std::unique_ptr<MarkdownPageView> WebEngine::makePage(MarkdownPageDelegate& delegate,
                                                      QWidget& parent)
{
    auto page = std::make_unique<WebPage>(m_profile, m_documents, ++m_pageCount, delegate, parent);
    ++m_openPageCount;
    m_idleTimer.stop();
    QObject::connect(&page->widget(), &QObject::destroyed, &m_idleTimer,
                     [this] { pageDestroyed(); });
    return page;
}

void WebEngine::pageDestroyed()
{
    if (--m_openPageCount == 0)
        m_idleTimer.start();
}

} // namespace driftbox
