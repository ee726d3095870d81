#include "markdown/webengine/DocumentScheme.h"

#include <QtWebEngineCore/QWebEngineUrlScheme>

using namespace Qt::StringLiterals;

namespace driftbox::DocumentScheme {

void registerScheme()
{
    QWebEngineUrlScheme scheme(name);
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Host);
    scheme.setFlags(QWebEngineUrlScheme::SecureScheme);
    QWebEngineUrlScheme::registerScheme(scheme);
}

QUrl pageAddress(const QUrl& folder, int page)
{
    QUrl address;
    address.setScheme(QString::fromLatin1(name));
    address.setHost(u"reader"_s);
    address.setPath(folder.path(QUrl::FullyDecoded), QUrl::DecodedMode);
    address.setQuery(u"page=%1"_s.arg(page));
    return address;
}

QUrl localFile(const QUrl& address)
{
    if (address.scheme() != QLatin1StringView(name))
        return address;
    QUrl file = QUrl::fromLocalFile(address.path(QUrl::FullyDecoded));
    file.setFragment(address.fragment(QUrl::FullyEncoded));
    return file;
}

} // namespace driftbox::DocumentScheme
