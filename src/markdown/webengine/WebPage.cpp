#include "markdown/webengine/WebPage.h"

#include "markdown/ReaderLog.h"
#include "markdown/webengine/DocumentScheme.h"
#include "markdown/webengine/DocumentSchemeHandler.h"

#include <chrono>

#include <QtCore/QTimer>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace driftbox {

namespace {

// A document that keeps crashing the engine is given up.
constexpr int maxCrashes = 3;
constexpr auto crashPeriod = 60s;

} // namespace

// A page that never leaves its address and opens no windows.
class WebPage::BoundPage final : public QWebEnginePage
{
public:
    BoundPage(QWebEngineProfile& profile, QObject* parent)
        : QWebEnginePage(&profile, parent)
    {
        // Navigation to an empty page bypasses acceptNavigationRequest().
        connect(this, &QWebEnginePage::urlChanged, this, [this](const QUrl& url) {
            if (url != m_address)
                QTimer::singleShot(0, this, [this] { load(m_address); });
        });
    }

    void open(const QUrl& address)
    {
        m_address = address;
        load(address);
    }

protected:
    [[nodiscard]] bool acceptNavigationRequest(const QUrl& url, NavigationType /*type*/,
                                               bool isMainFrame) override
    {
        return isMainFrame && url == m_address;
    }

    [[nodiscard]] QWebEnginePage* createWindow(WebWindowType /*type*/) override { return nullptr; }

    // The engine's complaints about a document are not logged.
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel /*level*/,
                                  const QString& /*message*/, int /*line*/,
                                  const QString& /*source*/) override
    {
    }

private:
    QUrl m_address;
};

WebPage::WebPage(QWebEngineProfile& profile, DocumentSchemeHandler& documents, int number,
                 MarkdownPageDelegate& delegate, QWidget& parent)
    : m_profile(profile)
    , m_documents(documents)
    , m_number(number)
    , m_bridge(delegate)
    , m_widget(std::make_unique<QWidget>(&parent))
{
    auto* layout = new QVBoxLayout(m_widget.get());
    layout->setContentsMargins({});
    makeView();
}

WebPage::~WebPage()
{
    m_documents.removePage(m_address);
}

void WebPage::makeView()
{
    m_view = std::make_unique<QWebEngineView>();
    m_page = new BoundPage(m_profile, m_view.get());
    m_channel = std::make_unique<QWebChannel>();
    m_channel->registerObject(u"program"_s, &m_bridge);
    m_page->setWebChannel(m_channel.get());
    if (m_underPageColor.isValid())
        m_page->setBackgroundColor(m_underPageColor);
    m_view->setPage(m_page);
    m_view->setContextMenuPolicy(Qt::PreventContextMenu);
    m_widget->layout()->addWidget(m_view.get());
    m_widget->setFocusProxy(m_view.get());
    QObject::connect(
        m_page, &QWebEnginePage::renderProcessTerminated, m_widget.get(),
        [this](QWebEnginePage::RenderProcessTerminationStatus status) { recover(status); });
}

void WebPage::setUnderPageColor(const QColor& color)
{
    m_underPageColor = color;
    m_page->setBackgroundColor(color);
}

void WebPage::load(const QByteArray& html, const QUrl& baseURL)
{
    m_address = DocumentScheme::pageAddress(baseURL, m_number);
    m_documents.setPage(m_address, html);
    m_page->open(m_address);
}

void WebPage::renderMarkdown(const QString& text, const QString& theme)
{
    Q_EMIT m_bridge.renderRequested(text, theme);
}

void WebPage::showPlace(const ReadingPlace& place)
{
    Q_EMIT m_bridge.placeRequested(
        {{u"line"_s, place.line}, {u"offset"_s, place.offset}, {u"fragment"_s, place.fragment}});
}

void WebPage::recover(QWebEnginePage::RenderProcessTerminationStatus status)
{
    if (status == QWebEnginePage::NormalTerminationStatus)
        return;
    if (m_crashPeriod.hasExpired())
        m_crashes = 0;
    m_crashPeriod.setRemainingTime(crashPeriod);
    if (++m_crashes > maxCrashes) {
        qCCritical(readerLog).noquote() << u"The web process crashes again and again; given up"_s;
        return;
    }
    qCWarning(readerLog).noquote() << u"The web process crashed; the document is loaded again"_s;
    // Deferred, since the engine is still handling the crashed page. That page must be replaced:
    // its remains would receive the messages for its successor.
    QTimer::singleShot(0, m_widget.get(), [this] {
        makeView();
        m_page->open(m_address);
    });
}

} // namespace driftbox
