#pragma once

#include <optional>
#include <utility>

#include <QtCore/QPoint>

namespace driftbox {

/// Tells a press that becomes a drag from a click with a trembling hand. Places are in points of
/// whatever the mouse is used on.
class DragStart
{
public:
    void press(QPoint place) { m_press = place; }
    void release() { m_press.reset(); }

    /// From the press until it is a drag or let go.
    [[nodiscard]] bool isPressed() const { return m_press.has_value(); }

    /// The pointer is at `place` now. Gives the place of the press when that makes it a drag: once
    /// a press, because whoever takes a window over takes the release, too.
    [[nodiscard]] std::optional<QPoint> move(QPoint place)
    {
        constexpr int minDistance = 4;
        if (!m_press || (place - *m_press).manhattanLength() < minDistance)
            return std::nullopt;
        return std::exchange(m_press, std::nullopt);
    }

private:
    std::optional<QPoint> m_press;
};

} // namespace driftbox
