#include "markdown/ReaderLog.h"

namespace driftbox {

Q_LOGGING_CATEGORY(readerLog, "MarkdownReader")

} // namespace driftbox
