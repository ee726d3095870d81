#pragma once

#include <QtCore/QStringView>

namespace driftbox {

/// The keyboard shortcut that pastes in an application.
enum class PasteShortcut {
    controlV,
    controlShiftV,
    shiftInsert, ///< pastes PRIMARY
};

/// The shortcut of the application whose windows have the given class (case-insensitive).
[[nodiscard]] PasteShortcut pasteShortcutOf(QStringView windowClass);

} // namespace driftbox
