#pragma once

#include "markdown/view/MarkdownWebEngine.h"
#include "markdown/webengine/PageBridge.h"

#include <QtCore/QDeadlineTimer>
#include <QtWebChannel/QWebChannel>
#include <QtWebEngineCore/QWebEnginePage>
#include <QtWebEngineWidgets/QWebEngineView>

namespace driftbox {

class DocumentSchemeHandler;

/// A page in the engine. It never navigates away, and is recreated when its process crashes.
class WebPage final : public MarkdownPageView
{
public:
    /// All references must outlive the page. `number` is unique among the profile's pages.
    WebPage(QWebEngineProfile& profile, DocumentSchemeHandler& documents, int number,
            MarkdownPageDelegate& delegate, QWidget& parent);
    ~WebPage() override;

    [[nodiscard]] QWidget& widget() override { return *m_widget; }
    void setUnderPageColor(const QColor& color) override;
    void load(const QByteArray& html, const QUrl& baseURL) override;
    void renderMarkdown(const QString& text, const QString& theme) override;
    void showPlace(const ReadingPlace& place) override;

private:
    class BoundPage;

    void makeView();
    void recover(QWebEnginePage::RenderProcessTerminationStatus status);

    QWebEngineProfile& m_profile;
    DocumentSchemeHandler& m_documents;
    int m_number;
    QColor m_underPageColor;
    QUrl m_address;
    PageBridge m_bridge;
    std::unique_ptr<QWidget> m_widget; ///< holds the view
    std::unique_ptr<QWebChannel> m_channel;
    std::unique_ptr<QWebEngineView> m_view;
    BoundPage* m_page = nullptr; ///< the view's
    int m_crashes = 0;
    QDeadlineTimer m_crashPeriod;
};

} // namespace driftbox
