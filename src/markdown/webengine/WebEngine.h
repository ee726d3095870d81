#pragma once

#include "markdown/view/MarkdownWebEngine.h"
#include "markdown/webengine/DocumentSchemeHandler.h"
#include "markdown/webengine/EngineLogFilter.h"
#include "markdown/webengine/RequestGuard.h"

#include <QtCore/QTimer>
#include <QtWebEngineCore/QWebEngineProfile>

namespace driftbox {

/// The engine with one profile for all pages, which keeps nothing on disk and reaches no network.
/// It stays when the last page has ended, but gives back the memory that it can do without.
class WebEngine final : public MarkdownWebEngine
{
public:
    WebEngine();
    ~WebEngine() override;

    [[nodiscard]] std::unique_ptr<MarkdownPageView> makePage(MarkdownPageDelegate& delegate,
                                                             QWidget& parent) override;

private:
    void pageHasEnded();

    EngineLogFilter m_chatter;
    DocumentSchemeHandler m_documents;
    RequestGuard m_guard;
    QWebEngineProfile m_profile; ///< keeps nothing, since it has no name
    int m_pages = 0;             ///< made so far
    int m_openPages = 0;
    QTimer m_rest; ///< runs since the last page has ended
};

} // namespace driftbox
