#pragma once

#include <QtCore/QUrl>

namespace driftbox {

/// Whether the ending of the file's name says that it is Markdown, in whatever case.
[[nodiscard]] bool isMarkdownFile(const QUrl& url);

} // namespace driftbox
