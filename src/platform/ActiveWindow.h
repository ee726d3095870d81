#pragma once

#include <functional>
#include <optional>

#include <QtCore/QObject>
#include <QtCore/QRect>

namespace driftbox {

/// Locates the window that has the keyboard focus. Main thread only.
class ActiveWindow
{
public:
    /// The window's frame in device pixels of the whole desktop, y pointing down, without the
    /// decorations that the window manager adds; none when it cannot be determined.
    using Answer = std::function<void(std::optional<QRect>)>;

    ActiveWindow() = default;
    Q_DISABLE_COPY_MOVE(ActiveWindow)
    virtual ~ActiveWindow() = default;

    /// Calls `answer` once, possibly before this function returns; never blocks on another
    /// application. `answer` is not called once `owner` has been destroyed.
    virtual void deviceFrame(QObject* owner, Answer answer) = 0;
};

} // namespace driftbox
