#pragma once

#include "markdown/MarkdownWebViewCoordinator.h"

#include <functional>
#include <memory>

#include <QtCore/QUrl>
#include <QtWidgets/QWidget>

namespace driftbox {

class MarkdownPageView;
struct ReaderServices;

/// The rendered preview of a document. The page is created once the view is visible, so that it
/// does not delay the window; the preview stays blank without a web engine or when one of the
/// page's files is missing.
class MarkdownWebView final : public QWidget
{
    Q_OBJECT

public:
    /// Relative paths in the document are resolved against the folder of `fileURL`. `services` must
    /// outlive this; `openDocument` opens a Markdown file in a reader.
    MarkdownWebView(const QUrl& fileURL, const ReaderServices& services,
                    std::function<void(const QUrl&)> openDocument, QWidget* parent);
    ~MarkdownWebView() override;

    /// Shows the text in the theme "light" or "dark".
    void update(const QString& markdown, const QString& theme);

    [[nodiscard]] const ReadingPlace& place() const { return m_coordinator.place(); }
    void showPlace(const ReadingPlace& place) { m_coordinator.showPlace(place); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void prepare();
    void makePage(const QByteArray& html);

    QUrl m_fileURL;
    const ReaderServices& m_services;
    MarkdownWebViewCoordinator m_coordinator;
    std::unique_ptr<MarkdownPageView> m_page;
    bool m_isPageRequested = false;
};

} // namespace driftbox
