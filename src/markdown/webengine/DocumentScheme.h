#pragma once

#include <QtCore/QUrl>

/// The URL scheme under which the engine accesses pages and local pictures. A page's address is
/// that of the document's folder, so that relative paths in the document resolve to it.
namespace driftbox::DocumentScheme {

inline constexpr auto name = "driftbox-document";

/// Registers the scheme with the engine; must be called before the first profile is created.
void registerScheme();

/// The address of page number `page` in the local folder `folder`.
[[nodiscard]] QUrl pageAddress(const QUrl& folder, int page);

/// The local file behind an address of the scheme; other addresses are returned unchanged.
[[nodiscard]] QUrl localFile(const QUrl& address);

} // namespace driftbox::DocumentScheme
