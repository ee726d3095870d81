#pragma once

#include "platform/TaskRunner.h"

#include <deque>

#include <QtCore/QPointer>

namespace driftbox {

/// Runs work when the test says so, on the test's own thread.
class FakeTaskRunner final : public TaskRunner
{
public:
    void run(QObject* owner, std::function<void()> work, std::function<void()> done) override;

    [[nodiscard]] std::size_t pending() const { return m_tasks.size(); }
    /// Does the oldest task's work and reports it done. There has to be one.
    void runNext();
    /// Runs tasks, those included that the others bring about, until none is left.
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
