#include "markdown/webengine/PageBridge.h"

#include "markdown/ReaderLog.h"
#include "markdown/webengine/DocumentScheme.h"

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

QVariant withLocalAddress(const QVariant& body)
{
    const QUrl url(body.toString(), QUrl::StrictMode);
    if (body.typeId() != QMetaType::QString || !url.isValid() ||
        url.scheme() != QLatin1StringView(DocumentScheme::name))
        return body;
    return DocumentScheme::localFile(url).toString(QUrl::FullyEncoded);
}

} // namespace

PageBridge::PageBridge(MarkdownPageDelegate& delegate, QObject* parent)
    : QObject(parent)
    , m_delegate(delegate)
{
}

void PageBridge::pageFinished()
{
    m_delegate.didFinishNavigation();
}

void PageBridge::postMessage(const QString& name, const QVariant& body)
{
    if (name == u"shown")
        qCInfo(readerLog).noquote() << u"Shown after %1 ms"_s.arg(body.toInt());
    else if (name == u"rendered")
        qCInfo(readerLog).noquote() << u"Rendered after %1 ms"_s.arg(body.toInt());
    m_delegate.didReceiveMessage(name, withLocalAddress(body));
}

} // namespace driftbox
