#pragma once

#include "markdown/ReadingPlace.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtCore/QVariant>

namespace driftbox {

/// Whom a page tells what happens in it.
class MarkdownPageDelegate
{
public:
    MarkdownPageDelegate() = default;
    Q_DISABLE_COPY_MOVE(MarkdownPageDelegate)
    virtual ~MarkdownPageDelegate() = default;

    /// The page is loaded: `renderMarkdown` can be called. Told again after every reload.
    virtual void didFinishNavigation() = 0;

    /// The page's script posts `body` to the message handler `name`. Neither can be trusted.
    virtual void didReceiveMessage(const QString& name, const QVariant& body) = 0;
};

/// A page in a web view. Main thread only.
class MarkdownPage
{
public:
    MarkdownPage() = default;
    Q_DISABLE_COPY_MOVE(MarkdownPage)
    virtual ~MarkdownPage() = default;

    /// Loads the page, which is in UTF-8; what it names by a relative path is found in the local
    /// folder `baseURL`.
    virtual void load(const QByteArray& html, const QUrl& baseURL) = 0;

    /// Calls the page's function `renderMarkdown` with these arguments. Returns at once; what comes
    /// of the call is not told.
    virtual void renderMarkdown(const QString& text, const QString& theme) = 0;

    /// Scrolls to the place, once it is there: now, or while the document is rendered.
    virtual void showPlace(const ReadingPlace& place) = 0;
};

} // namespace driftbox
