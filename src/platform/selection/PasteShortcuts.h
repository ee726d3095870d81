#pragma once

#include <QtCore/QStringView>

namespace driftbox {

/// The keys that paste in an application.
enum class PasteShortcut {
    controlV,
    controlShiftV,
    shiftInsert, ///< pastes PRIMARY
};

/// The shortcut of the application whose windows have that class; upper and lower case are the
/// same.
[[nodiscard]] PasteShortcut pasteShortcutOf(QStringView windowClass);

} // namespace driftbox
