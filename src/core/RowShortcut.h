#pragma once

#include "platform/KeyPress.h"

#include <optional>

namespace driftbox {

/// The row that Control and a digit stand for; none for other keys. On some keyboards the digits
/// need Shift.
[[nodiscard]] inline std::optional<int> rowShortcutOf(const KeyPress& press)
{
    const bool isControl =
        (press.modifiers & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::ControlModifier;
    const bool isDigit = press.key >= Qt::Key_1 && press.key <= Qt::Key_9;
    return isControl && isDigit ? std::optional(press.key - Qt::Key_1) : std::nullopt;
}

} // namespace driftbox
