#pragma once

#include <QtCore/QLoggingCategory>

/// Logging. Each type that logs has a `QLoggingCategory` of its own with the name of the type; the
/// types of the Markdown reader share "MarkdownReader". Progress is `qCInfo`, a notable condition
/// `qCWarning`, a failure `qCCritical`. The content of the clipboard and of notes is never logged.
namespace driftbox::Log {

inline constexpr auto subsystem = "app.driftbox";

/// Sends what the program logs to the journal, with SUBSYSTEM and CATEGORY fields, when the session
/// started it; otherwise to standard error, one line each: time, level, subsystem:category,
/// message.
void install();

} // namespace driftbox::Log
