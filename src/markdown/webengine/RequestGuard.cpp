#include "markdown/webengine/RequestGuard.h"

#include "markdown/webengine/DocumentScheme.h"

#include <QtWebEngineCore/QWebEngineUrlRequestInfo>

namespace driftbox {

void RequestGuard::interceptRequest(QWebEngineUrlRequestInfo& request)
{
    const QString scheme = request.requestUrl().scheme();
    request.block(scheme != QLatin1StringView(DocumentScheme::name) && scheme != u"data");
}

} // namespace driftbox
