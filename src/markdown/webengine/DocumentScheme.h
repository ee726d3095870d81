#pragma once

#include <QtCore/QUrl>

/// The addresses under which the engine sees pages and local pictures. A page's address is that of
/// the document's folder, so that what the document names by a relative path lies beside it.
namespace driftbox::DocumentScheme {

inline constexpr auto name = "driftbox-document";

/// Makes the scheme known to the engine; before the first profile is made.
void registerScheme();

/// The page number `page` with `folder`, a local one, as its own.
[[nodiscard]] QUrl pageAddress(const QUrl& folder, int page);

/// The local file that an address below the scheme stands for; any other address as it is.
[[nodiscard]] QUrl localFile(const QUrl& address);

} // namespace driftbox::DocumentScheme
