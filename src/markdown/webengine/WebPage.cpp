#include "markdown/webengine/WebPage.h"

#include "markdown/webengine/DocumentScheme.h"
#include "markdown/webengine/DocumentSchemeHandler.h"

#include <chrono>

#include <QtCore/QLoggingCategory>
#include <QtCore/QUuid>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(log, "MarkdownReader")

// A document that brings the engine down every time is given up.
constexpr int maxCrashes = 3;
constexpr auto crashPeriod = 60s;

// A page that stays where it was put and opens no windows.
class BoundPage final : public QWebEnginePage
{
public:
    using QWebEnginePage::QWebEnginePage;

    QUrl address;

protected:
    [[nodiscard]] bool acceptNavigationRequest(const QUrl& url, NavigationType /*type*/,
                                               bool isMainFrame) override
    {
        return isMainFrame && url == address;
    }

    [[nodiscard]] QWebEnginePage* createWindow(WebWindowType /*type*/) override { return nullptr; }

    // What a document makes the engine complain about concerns nobody.
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel /*level*/,
                                  const QString& /*message*/, int /*line*/,
                                  const QString& /*source*/) override
    {
    }
};

} // namespace

WebPage::WebPage(QWebEngineProfile& profile, DocumentSchemeHandler& documents, int number,
                 MarkdownPageDelegate& delegate, QWidget& parent)
    : m_documents(documents)
    , m_number(number)
    , m_bridge(delegate)
    , m_view(std::make_unique<QWebEngineView>(&parent))
    , m_page(new BoundPage(&profile, m_view.get()))
{
    m_channel.registerObject(u"program"_s, &m_bridge);
    m_page->setWebChannel(&m_channel);
    m_view->setPage(m_page);
    m_view->setContextMenuPolicy(Qt::PreventContextMenu);
    QObject::connect(
        m_page, &QWebEnginePage::renderProcessTerminated, m_view.get(),
        [this](QWebEnginePage::RenderProcessTerminationStatus status) { recover(status); });
}

WebPage::~WebPage()
{
    m_documents.removePage(m_address);
}

void WebPage::setUnderPageColor(const QColor& color)
{
    m_page->setBackgroundColor(color);
}

void WebPage::load(const QString& html, const QUrl& baseURL)
{
    // Only scripts that bear this mark are run, and nobody can foresee it.
    QString page = html;
    page.replace(u"__NONCE__"_s, QUuid::createUuid().toString(QUuid::Id128));
    m_address = DocumentScheme::pageAddress(baseURL, m_number);
    static_cast<BoundPage*>(m_page)->address = m_address;
    m_documents.setPage(m_address, page.toUtf8());
    m_page->load(m_address);
}

void WebPage::renderMarkdown(const QString& text, const QString& theme)
{
    Q_EMIT m_bridge.renderRequested(text, theme);
}

void WebPage::recover(QWebEnginePage::RenderProcessTerminationStatus status)
{
    if (status == QWebEnginePage::NormalTerminationStatus)
        return;
    if (m_crashPeriod.hasExpired())
        m_crashes = 0;
    m_crashPeriod.setRemainingTime(crashPeriod);
    if (++m_crashes > maxCrashes) {
        qCCritical(log).noquote() << u"The web process crashes again and again; given up"_s;
        return;
    }
    qCWarning(log).noquote() << u"The web process crashed; the document is loaded again"_s;
    m_page->load(m_address);
}

} // namespace driftbox
