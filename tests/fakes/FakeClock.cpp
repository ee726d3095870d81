#include "fakes/FakeClock.h"

#include <algorithm>

namespace driftbox {

namespace {

constexpr double startSeconds = 800'000'000.25; // an arbitrary instant with a fraction

class FakeRepetition final : public Repetition, public QObject
{
};

} // namespace

Instant FakeClock::now() const
{
    return Instant::fromReferenceSeconds(startSeconds +
                                         std::chrono::duration<double>(m_elapsed).count());
}

void FakeClock::after(std::chrono::milliseconds delay, QObject* owner, std::function<void()> step)
{
    m_steps.push_back(
        {m_elapsed + delay, std::chrono::milliseconds::zero(), owner, std::move(step)});
}

std::unique_ptr<Repetition> FakeClock::every(std::chrono::milliseconds interval,
                                             std::function<void()> step)
{
    auto repetition = std::make_unique<FakeRepetition>();
    m_steps.push_back({m_elapsed + interval, interval, repetition.get(), std::move(step)});
    return repetition;
}

std::ptrdiff_t FakeClock::repetitions() const
{
    return std::ranges::count_if(m_steps, [](const Step& step) {
        return step.owner && step.interval > std::chrono::milliseconds::zero();
    });
}

std::vector<FakeClock::Step>::iterator FakeClock::nextStep()
{
    std::erase_if(m_steps, [](const Step& step) { return step.owner.isNull(); });
    return std::ranges::min_element(m_steps, {}, &Step::due);
}

void FakeClock::advance(std::chrono::milliseconds duration)
{
    const auto end = m_elapsed + duration;
    for (auto next = nextStep(); next != m_steps.end() && next->due <= end; next = nextStep()) {
        m_elapsed = next->due;
        const auto run = next->run;
        if (next->interval > std::chrono::milliseconds::zero())
            next->due += next->interval;
        else
            m_steps.erase(next);
        run();
    }
    m_elapsed = end;
}

} // namespace driftbox
