#pragma once

#include "platform/Clock.h"

#include <vector>

#include <QtCore/QPointer>

namespace driftbox {

/// A clock that moves only when a test moves it.
class FakeClock final : public Clock
{
public:
    [[nodiscard]] Instant now() const override;
    void after(std::chrono::milliseconds delay, QObject* owner,
               std::function<void()> step) override;
    [[nodiscard]] std::unique_ptr<Repetition> every(std::chrono::milliseconds interval,
                                                    std::function<void()> step) override;

    /// Moves time on and runs, in order of time, every step that falls due on the way.
    void advance(std::chrono::milliseconds duration);

    /// How many repetitions run.
    [[nodiscard]] std::ptrdiff_t repetitions() const;

private:
    struct Step
    {
        std::chrono::milliseconds due;
        std::chrono::milliseconds interval; ///< zero for a single step
        QPointer<QObject> owner;
        std::function<void()> run;
    };

    [[nodiscard]] std::vector<Step>::iterator nextStep();

    std::chrono::milliseconds m_elapsed{0};
    std::vector<Step> m_steps;
};

} // namespace driftbox
