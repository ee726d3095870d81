#pragma once

#include <optional>
#include <utility>

#include <QtCore/QPoint>

namespace driftbox {

/// Distinguishes the start of a drag from a click with a slightly moved mouse. Positions are in
/// points, relative to any fixed origin.
class DragStart
{
public:
    void press(QPoint position) { m_press = position; }
    void release() { m_press.reset(); }

    /// True from the press until it becomes a drag or is released.
    [[nodiscard]] bool isPressed() const { return m_press.has_value(); }

    /// Call when the mouse moves to `position`. Returns the position of the press if this starts a
    /// drag, at most once per press: a window that is moved by the desktop gets no release.
    [[nodiscard]] std::optional<QPoint> move(QPoint position)
    {
        constexpr int minDistance = 4;
        if (!m_press || (position - *m_press).manhattanLength() < minDistance)
            return std::nullopt;
        return std::exchange(m_press, std::nullopt);
    }

private:
    std::optional<QPoint> m_press;
};

} // namespace driftbox
