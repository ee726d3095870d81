#include "fakes/FakeTaskRunner.h"

namespace driftbox {

void FakeTaskRunner::run(QObject* owner, std::function<void()> work, std::function<void()> done)
{
    m_tasks.push_back({owner, std::move(work), std::move(done)});
}

void FakeTaskRunner::runNext()
{
    Q_ASSERT(!m_tasks.empty());
    const Task task = std::move(m_tasks.front());
    m_tasks.pop_front();
    task.work();
    if (task.owner)
        task.done();
}

void FakeTaskRunner::runAll()
{
    while (!m_tasks.empty())
        runNext();
}

} // namespace driftbox
