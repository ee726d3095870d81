#pragma once

#include "platform/TaskRunner.h"

#include <deque>

#include <QtCore/QPointer>

namespace driftbox {

/// Runs tasks when the test says so, on the test's thread.
class FakeTaskRunner final : public TaskRunner
{
public:
    void run(QObject* owner, std::function<void()> work, std::function<void()> done) override;

    [[nodiscard]] std::size_t pending() const { return m_tasks.size(); }
    /// Runs the oldest task, which must exist, including its completion callback.
    void runNext();
    /// Runs all tasks, including those that they start.
    void runAll();

private:
    struct Task
    {
        QPointer<QObject> owner;
        std::function<void()> work;
        std::function<void()> done;
    };

    std::deque<Task> m_tasks;
};

} // namespace driftbox
