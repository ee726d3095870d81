#pragma once

#include <optional>

#include <QtCore/Qt>

namespace driftbox {

/// A key that is pressed while the typing goes to a list's search field.
struct ListKeyPress
{
    Qt::Key key;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    bool isRepeated = false; ///< comes from a key that is held down

    /// The row that Control and a digit stand for; none for other keys. On some keyboards the
    /// digits need Shift.
    [[nodiscard]] std::optional<int> place() const
    {
        const bool isControl =
            (modifiers & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::ControlModifier;
        const bool isDigit = key >= Qt::Key_1 && key <= Qt::Key_9;
        return isControl && isDigit ? std::optional(key - Qt::Key_1) : std::nullopt;
    }
};

} // namespace driftbox
