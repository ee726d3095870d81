#pragma once

#include "markdown/MarkdownPage.h"

#include <functional>

#include <QtCore/QObject>

namespace driftbox {

class DocumentOpener;

/// Stands between a document and its page: holds the text until the page is there, and takes what
/// the page has to say. One a page. Main thread only.
class MarkdownWebViewCoordinator : public QObject, public MarkdownPageDelegate
{
    Q_OBJECT

public:
    /// `opener` must outlive this; `openDocument` opens a Markdown file in a reader.
    MarkdownWebViewCoordinator(DocumentOpener& opener,
                               std::function<void(const QUrl&)> openDocument,
                               QObject* parent = nullptr);

    /// The page has finished loading at least once.
    [[nodiscard]] bool isReady() const { return m_isReady; }
    /// The latest that was handed over.
    [[nodiscard]] const QString& pendingMarkdown() const { return m_pendingMarkdown; }
    [[nodiscard]] const QString& pendingTheme() const { return m_pendingTheme; }

    /// The page that is coming; null when there is none any more. It must outlive this or be taken
    /// back.
    void setPage(MarkdownPage* page) { m_page = page; }

    /// Renders these in the page, "light" or "dark", on the event loop's next turn: now if the page
    /// is ready, else once it is, unless something else is pushed before.
    void push(const QString& markdown, const QString& theme);

    /// Where the page says its reader is, or where it was told to go since.
    [[nodiscard]] const ReadingPlace& place() const { return m_place; }

    /// Has the page go there on the event loop's next turn, or once it is ready.
    void showPlace(const ReadingPlace& place);

    void didFinishNavigation() override;

    /// Takes the place from a "readingPosition" message. Follows the link in the body of an
    /// "openExternal" message: web and mail addresses and files open in their programs, Markdown
    /// files in a reader. Programs and everything that could start one are only shown in the file
    /// manager. All other messages and addresses are ignored.
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
