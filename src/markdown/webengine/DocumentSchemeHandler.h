#pragma once

#include <QtCore/QHash>
#include <QtCore/QUrl>
#include <QtWebEngineCore/QWebEngineUrlSchemeHandler>

namespace driftbox {

/// Serves the registered pages and, to them, local pictures; no other files.
class DocumentSchemeHandler final : public QWebEngineUrlSchemeHandler
{
    Q_OBJECT

public:
    using QWebEngineUrlSchemeHandler::QWebEngineUrlSchemeHandler;

    /// Serves `html` at `address` from now on.
    void setPage(const QUrl& address, const QByteArray& html) { m_pages.insert(address, html); }
    void removePage(const QUrl& address) { m_pages.remove(address); }

    void requestStarted(QWebEngineUrlRequestJob* job) override;

private:
    QHash<QUrl, QByteArray> m_pages;
};

} // namespace driftbox
