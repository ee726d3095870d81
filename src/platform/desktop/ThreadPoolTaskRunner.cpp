#include "platform/desktop/ThreadPoolTaskRunner.h"

namespace driftbox {

namespace {

constexpr int idleThreadTimeoutMs = 5'000;

} // namespace

ThreadPoolTaskRunner::ThreadPoolTaskRunner(int threads)
{
    m_pool.setMaxThreadCount(threads);
    m_pool.setExpiryTimeout(idleThreadTimeoutMs);
}

ThreadPoolTaskRunner::~ThreadPoolTaskRunner()
{
    m_pool.clear();
    m_pool.waitForDone();
}

void ThreadPoolTaskRunner::run(QObject* owner, std::function<void()> work,
                               std::function<void()> done)
{
    const auto task = m_tasks.insert(m_tasks.end(), {owner, std::move(work), std::move(done)});
    m_pool.start([this, task] {
        task->work();
        QMetaObject::invokeMethod(
            this, [this, task] { finish(task); }, Qt::QueuedConnection);
    });
}

void ThreadPoolTaskRunner::finish(Tasks::iterator task)
{
    const Task finished = std::move(*task);
    m_tasks.erase(task);
    if (finished.owner)
        finished.done();
}

} // namespace driftbox
