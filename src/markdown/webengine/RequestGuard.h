#pragma once

#include <QtWebEngineCore/QWebEngineUrlRequestInterceptor>

namespace driftbox {

/// Refuses everything that would leave the machine: pages get local documents' pictures and what
/// they carry within themselves, nothing else.
class RequestGuard final : public QWebEngineUrlRequestInterceptor
{
    Q_OBJECT

public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

    void interceptRequest(QWebEngineUrlRequestInfo& request) override;
};

} // namespace driftbox
