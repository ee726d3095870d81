#include "platform/desktop/SystemClock.h"

#include <utility>

#include <QtCore/QTimer>

namespace driftbox {

namespace {

class TimerRepetition final : public Repetition
{
public:
    TimerRepetition(std::chrono::milliseconds interval, std::function<void()> step)
    {
        m_timer.setTimerType(Qt::CoarseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, std::move(step));
        m_timer.start(interval);
    }

private:
    QTimer m_timer;
};

} // namespace

Instant SystemClock::now() const
{
    return Instant::fromDateTime(QDateTime::currentDateTimeUtc());
}

void SystemClock::after(std::chrono::milliseconds delay, QObject* owner, std::function<void()> step)
{
    QTimer::singleShot(delay, Qt::PreciseTimer, owner, std::move(step));
}

std::unique_ptr<Repetition> SystemClock::every(std::chrono::milliseconds interval,
                                               std::function<void()> step)
{
    return std::make_unique<TimerRepetition>(interval, std::move(step));
}

} // namespace driftbox
