#pragma once

#include <functional>

#include <QtCore/QObject>

namespace driftbox {

/// Runs work off the main thread.
class TaskRunner
{
public:
    TaskRunner() = default;
    Q_DISABLE_COPY_MOVE(TaskRunner)
    virtual ~TaskRunner() = default;

    /// Runs `work` on a background thread, then `done` on the main thread unless `owner` has been
    /// destroyed by then. `work` must not touch anything that the main thread uses. Call from the
    /// main thread; returns at once.
    virtual void run(QObject* owner, std::function<void()> work, std::function<void()> done) = 0;
};

} // namespace driftbox
