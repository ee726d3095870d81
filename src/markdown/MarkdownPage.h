#pragma once

#include "markdown/ReadingPlace.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtCore/QVariant>

namespace driftbox {

/// Receives a page's events.
class MarkdownPageDelegate
{
public:
    MarkdownPageDelegate() = default;
    Q_DISABLE_COPY_MOVE(MarkdownPageDelegate)
    virtual ~MarkdownPageDelegate() = default;

    /// The page has finished loading: `renderMarkdown` can be called. Called again after every
    /// reload.
    virtual void didFinishNavigation() = 0;

    /// The page's script has posted `body` to the message handler `name`. Neither can be trusted.
    virtual void didReceiveMessage(const QString& name, const QVariant& body) = 0;
};

/// A page in a web view. Main thread only.
class MarkdownPage
{
public:
    MarkdownPage() = default;
    Q_DISABLE_COPY_MOVE(MarkdownPage)
    virtual ~MarkdownPage() = default;

    /// Loads a page encoded in UTF-8. Relative paths in it are resolved against the local folder
    /// `baseURL`.
    virtual void load(const QByteArray& html, const QUrl& baseURL) = 0;

    /// Calls the page's function `renderMarkdown` with these arguments. Returns at once; the result
    /// of the call is not reported.
    virtual void renderMarkdown(const QString& text, const QString& theme) = 0;

    /// Scrolls to the place as soon as it has been rendered.
    virtual void showPlace(const ReadingPlace& place) = 0;
};

} // namespace driftbox
