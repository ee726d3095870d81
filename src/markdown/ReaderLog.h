#pragma once

#include <QtCore/QLoggingCategory>

namespace driftbox {

/// The one logging category of the Markdown reader, "MarkdownReader".
Q_DECLARE_LOGGING_CATEGORY(readerLog)

} // namespace driftbox
