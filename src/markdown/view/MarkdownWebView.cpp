#include "markdown/view/MarkdownWebView.h"

#include "markdown/view/MarkdownWebEngine.h"
#include "markdown/view/ReaderServices.h"
#include "platform/TaskRunner.h"

#include <memory>
#include <optional>
#include <utility>

#include <QtCore/QEvent>
#include <QtGui/QPainter>

namespace driftbox {

MarkdownWebView::MarkdownWebView(const QUrl& fileURL, const ReaderServices& services,
                                 std::function<void(const QUrl&)> openDocument, QWidget* parent)
    : QWidget(parent)
    , m_fileURL(fileURL)
    , m_services(services)
    , m_coordinator(services.opener, std::move(openDocument))
{
    setFocusPolicy(Qt::StrongFocus);
}

MarkdownWebView::~MarkdownWebView()
{
    m_coordinator.setPage(nullptr);
}

void MarkdownWebView::update(const QString& markdown, const QString& theme)
{
    m_coordinator.push(markdown, theme);
}

// The page and the engine are large: read the one and preload the other on a background thread.
void MarkdownWebView::prepare()
{
    const auto html = std::make_shared<std::optional<QByteArray>>();
    m_services.tasks.run(
        this,
        [html, resources = m_services.resources, preload = m_services.webEngines.preloading()] {
            *html = resources.pageWithNonce();
            if (*html)
                preload();
        },
        [this, html] {
            if (*html)
                makePage(**html);
        });
}

void MarkdownWebView::makePage(const QByteArray& html)
{
    MarkdownWebEngine* engine = m_services.webEngines.engine();
    if (engine == nullptr)
        return;
    m_page = engine->makePage(m_coordinator, *this);
    m_page->setUnderPageColor(palette().color(QPalette::Base));
    m_coordinator.setPage(m_page.get());
    m_page->load(html, m_fileURL.adjusted(QUrl::RemoveFilename));
    setFocusProxy(&m_page->widget());
    m_page->widget().setGeometry(rect());
    m_page->widget().show();
}

void MarkdownWebView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter(this).fillRect(rect(), palette().color(QPalette::Base));
    // The program's first page takes a while to create; let the window appear before that.
    if (!std::exchange(m_isPageRequested, true))
        prepare();
}

void MarkdownWebView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (m_page)
        m_page->widget().setGeometry(rect());
}

void MarkdownWebView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (m_page && event->type() == QEvent::PaletteChange)
        m_page->setUnderPageColor(palette().color(QPalette::Base));
}

} // namespace driftbox
