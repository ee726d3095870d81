#pragma once

#include "platform/TaskRunner.h"

#include <list>

#include <QtCore/QPointer>
#include <QtCore/QThreadPool>

namespace driftbox {

/// Runs work on a few threads of its own, which end after being idle for a while.
///
/// Work starts in the order of the calls; whatever `work` and `done` capture is released on the
/// main thread. Destroying the runner drops work that has not started, waits for running work, and
/// calls no further `done`.
class ThreadPoolTaskRunner final : public QObject, public TaskRunner
{
public:
    explicit ThreadPoolTaskRunner(int threads = 2);
    ~ThreadPoolTaskRunner() override;

    void run(QObject* owner, std::function<void()> work, std::function<void()> done) override;

private:
    struct Task
    {
        QPointer<QObject> owner;
        std::function<void()> work;
        std::function<void()> done;
    };
    using Tasks = std::list<Task>;

    void finish(Tasks::iterator task);

    Tasks m_tasks; ///< main thread only; the threads just call their own task's `work`
    QThreadPool m_pool;
};

} // namespace driftbox
