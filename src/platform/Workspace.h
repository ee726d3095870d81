#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <sys/types.h>

#include <QtCore/QString>

class QObject;

namespace driftbox {

/// A snapshot of an application: its process and its window that was active at the time. Main
/// thread only.
class RunningApplication
{
public:
    /// The keyboard focus relative to that window.
    enum class Focus {
        inside, ///< in that window or one of its children
        outside,
        gone, ///< the process or the window no longer exists
    };
    using FocusAnswer = std::function<void(Focus)>;

    RunningApplication() = default;
    Q_DISABLE_COPY_MOVE(RunningApplication)
    virtual ~RunningApplication() = default;

    /// Zero or less when it is unknown.
    [[nodiscard]] virtual pid_t processIdentifier() const = 0;

    /// Identifies the application (its window class); none when it has none.
    [[nodiscard]] virtual std::optional<QString> bundleIdentifier() const = 0;

    [[nodiscard]] virtual bool isFinishedLaunching() const = 0;

    /// Whether the process or the window no longer exists.
    [[nodiscard]] virtual bool isTerminated() const = 0;

    /// Asks the desktop to raise that window and give it the keyboard focus. Returns at once.
    virtual void activate() = 0;

    /// Queries the focus asynchronously. `answer` is called once, possibly before this function
    /// returns, and not at all once this or `owner` has been destroyed.
    virtual void whenFocusKnown(QObject* owner, FocusAnswer answer) = 0;
};

/// Tells which application is active. Main thread only.
class Workspace
{
public:
    Workspace() = default;
    Q_DISABLE_COPY_MOVE(Workspace)
    virtual ~Workspace() = default;

    /// The application that has the keyboard focus; null when there is none.
    [[nodiscard]] virtual std::shared_ptr<RunningApplication> frontmostApplication() const = 0;
};

} // namespace driftbox
