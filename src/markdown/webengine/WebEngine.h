#pragma once

#include "markdown/view/MarkdownWebEngine.h"
#include "markdown/webengine/DocumentSchemeHandler.h"
#include "markdown/webengine/EngineLogFilter.h"
#include "markdown/webengine/RequestGuard.h"

#include <QtCore/QTimer>
#include <QtWebEngineCore/QWebEngineProfile>

namespace driftbox {

/// The engine with a single profile for all pages, which stores nothing on disk and has no network
/// access. After the last page has been closed it keeps running but releases unneeded memory.
class WebEngine final : public MarkdownWebEngine
{
public:
    WebEngine();
    ~WebEngine() override;

    [[nodiscard]] std::unique_ptr<MarkdownPageView> makePage(MarkdownPageDelegate& delegate,
                                                             QWidget& parent) override;

private:
    void pageDestroyed();

    EngineLogFilter m_logFilter;
    DocumentSchemeHandler m_documents;
    RequestGuard m_guard;
    QWebEngineProfile m_profile; ///< off the record, since it has no name
    int m_pageCount = 0;         ///< created so far
    int m_openPageCount = 0;
    QTimer m_idleTimer; ///< runs after the last page has been closed
};

} // namespace driftbox
