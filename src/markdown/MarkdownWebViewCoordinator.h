#pragma once

#include "markdown/MarkdownPage.h"

#include <functional>

#include <QtCore/QObject>

namespace driftbox {

class DocumentOpener;

/// Mediates between a document and its page: holds the text back until the page is ready, and
/// handles the page's messages. One per page. Main thread only.
class MarkdownWebViewCoordinator : public QObject, public MarkdownPageDelegate
{
    Q_OBJECT

public:
    /// `opener` must outlive this; `openDocument` opens a Markdown file in a reader.
    MarkdownWebViewCoordinator(DocumentOpener& opener,
                               std::function<void(const QUrl&)> openDocument,
                               QObject* parent = nullptr);

    /// Whether the page has finished loading at least once.
    [[nodiscard]] bool isReady() const { return m_isReady; }
    /// The text and theme that were pushed last.
    [[nodiscard]] const QString& pendingMarkdown() const { return m_pendingMarkdown; }
    [[nodiscard]] const QString& pendingTheme() const { return m_pendingTheme; }

    /// Sets the page, possibly before it has loaded, or null to detach it. It must outlive this or
    /// be detached.
    void setPage(MarkdownPage* page) { m_page = page; }

    /// Renders the text in the page with the theme "light" or "dark", in the next iteration of the
    /// event loop: immediately if the page is ready, else as soon as it is, unless something else
    /// is pushed before.
    void push(const QString& markdown, const QString& theme);

    /// The reading position last reported by the page or requested since.
    [[nodiscard]] const ReadingPlace& place() const { return m_place; }

    /// Scrolls the page there in the next iteration of the event loop, or as soon as it is ready.
    void showPlace(const ReadingPlace& place);

    void didFinishNavigation() override;

    /// Stores the position of a "readingPosition" message. Follows the link in the body of an
    /// "openExternal" message: web addresses, mail addresses and files open in their programs,
    /// Markdown files in a reader. Executables and everything that could start one are only shown
    /// in the file manager. All other messages and addresses are ignored.
    void didReceiveMessage(const QString& name, const QVariant& body) override;

private:
    void scheduleRender(const QString& markdown, const QString& theme);
    void schedulePlace();
    void openFile(const QUrl& address);

    DocumentOpener& m_opener;
    std::function<void(const QUrl&)> m_openDocument;
    MarkdownPage* m_page = nullptr;
    bool m_isReady = false;
    QString m_pendingMarkdown;
    QString m_pendingTheme = QStringLiteral("light");
    ReadingPlace m_place;
};

} // namespace driftbox
