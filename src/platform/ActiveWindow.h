#pragma once

#include <functional>
#include <optional>

#include <QtCore/QObject>
#include <QtCore/QRect>

namespace driftbox {

/// Where the window is that has the keyboard. Main thread only.
class ActiveWindow
{
public:
    /// In device pixels of the whole desktop, y growing downwards, without what the window manager
    /// adds around the window; none when it cannot be had.
    using Answer = std::function<void(std::optional<QRect>)>;

    ActiveWindow() = default;
    ActiveWindow(const ActiveWindow&) = delete;
    ActiveWindow& operator=(const ActiveWindow&) = delete;
    virtual ~ActiveWindow() = default;

    /// Calls `answer` once, perhaps before this returns; never waits for another application.
    /// Nothing is called once `owner` has been destroyed.
    virtual void deviceFrame(QObject* owner, Answer answer) = 0;
};

} // namespace driftbox
