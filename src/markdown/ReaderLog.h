#pragma once

#include <QtCore/QLoggingCategory>

namespace driftbox {

/// All that the Markdown reader logs is in one category, "MarkdownReader".
Q_DECLARE_LOGGING_CATEGORY(readerLog)

} // namespace driftbox
