#pragma once

#include <QtCore/QLoggingCategory>

/// Logging. Each type that logs has a `QLoggingCategory` named after it; the types of the Markdown
/// reader share "MarkdownReader". Progress is logged with `qCInfo`, notable conditions with
/// `qCWarning`, failures with `qCCritical`. Clipboard and note contents are never logged.
namespace driftbox::Log {

inline constexpr auto subsystem = "app.driftbox";

/// Installs the message handler. If standard error is connected to the journal, messages go there
/// with SUBSYSTEM and CATEGORY fields; otherwise to standard error, one per line: time, level,
/// subsystem:category, message.
void install();

} // namespace driftbox::Log
