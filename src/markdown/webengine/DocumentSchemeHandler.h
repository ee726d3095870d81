#pragma once

#include <QtCore/QHash>
#include <QtCore/QUrl>
#include <QtWebEngineCore/QWebEngineUrlSchemeHandler>

namespace driftbox {

/// Gives the engine the pages that it is told to load, and to them the pictures of the local disk;
/// no other files.
class DocumentSchemeHandler final : public QWebEngineUrlSchemeHandler
{
    Q_OBJECT

public:
    using QWebEngineUrlSchemeHandler::QWebEngineUrlSchemeHandler;

    /// The page at `address` is `html` from now on, for every load of it.
    void setPage(const QUrl& address, const QByteArray& html) { m_pages.insert(address, html); }
    void removePage(const QUrl& address) { m_pages.remove(address); }

    void requestStarted(QWebEngineUrlRequestJob* job) override;

private:
    QHash<QUrl, QByteArray> m_pages;
};

} // namespace driftbox
