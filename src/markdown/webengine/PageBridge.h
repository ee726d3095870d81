#pragma once

#include "markdown/MarkdownPage.h"

#include <QtCore/QObject>

namespace driftbox {

/// The program's interface for the page's script, which calls the public slots and connects to the
/// signals.
class PageBridge final : public QObject
{
    Q_OBJECT

public:
    /// `delegate` must outlive this. Addresses of local files are passed to it as file URLs.
    explicit PageBridge(MarkdownPageDelegate& delegate, QObject* parent = nullptr);

public Q_SLOTS:
    /// The page is ready to render.
    void pageFinished();
    void postMessage(const QString& name, const QVariant& body);

Q_SIGNALS:
    void renderRequested(const QString& text, const QString& theme);
    void placeRequested(const QVariantMap& place);

private:
    MarkdownPageDelegate& m_delegate;
};

} // namespace driftbox
