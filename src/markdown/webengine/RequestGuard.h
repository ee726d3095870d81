#pragma once

#include <QtWebEngineCore/QWebEngineUrlRequestInterceptor>

namespace driftbox {

/// Blocks all network requests: pages can load local pictures and embedded data only.
class RequestGuard final : public QWebEngineUrlRequestInterceptor
{
    Q_OBJECT

public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

    void interceptRequest(QWebEngineUrlRequestInfo& request) override;
};

} // namespace driftbox
