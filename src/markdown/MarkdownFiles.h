#pragma once

#include <QtCore/QUrl>

namespace driftbox {

/// Whether the file name has a Markdown extension (case-insensitive).
[[nodiscard]] bool isMarkdownFile(const QUrl& url);

} // namespace driftbox
