#pragma once

#include "markdown/MarkdownPage.h"

#include <QtCore/QObject>

namespace driftbox {

/// The program as the page's script sees it. The script calls the public slots and listens to the
/// signal.
class PageBridge final : public QObject
{
    Q_OBJECT

public:
    /// `delegate` must outlive this. Addresses of local files are told as such.
    explicit PageBridge(MarkdownPageDelegate& delegate, QObject* parent = nullptr);

public Q_SLOTS:
    /// The page can be told to render.
    void pageFinished();
    void postMessage(const QString& name, const QVariant& body);

Q_SIGNALS:
    void renderRequested(const QString& text, const QString& theme);
    void placeRequested(const QVariantMap& place);

private:
    MarkdownPageDelegate& m_delegate;
};

} // namespace driftbox
