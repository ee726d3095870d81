#pragma once

#include "platform/Clock.h"

#include <vector>

#include <QtCore/QPointer>

namespace driftbox {

/// A clock that advances only when the test calls `advance`.
class FakeClock final : public Clock
{
public:
    [[nodiscard]] Instant now() const override;
    void after(std::chrono::milliseconds delay, QObject* owner,
               std::function<void()> step) override;
    [[nodiscard]] std::unique_ptr<Repetition> every(std::chrono::milliseconds interval,
                                                    std::function<void()> step) override;

    /// Advances the time and runs all steps that become due, in order.
    void advance(std::chrono::milliseconds duration);

    /// The number of active repetitions.
    [[nodiscard]] std::ptrdiff_t repetitions() const;

private:
    struct Step
    {
        std::chrono::milliseconds due;
        std::chrono::milliseconds interval; ///< zero for a step that is not repeated
        QPointer<QObject> owner;
        std::function<void()> run;
    };

    [[nodiscard]] std::vector<Step>::iterator nextStep();

    std::chrono::milliseconds m_elapsed{0};
    std::vector<Step> m_steps;
};

} // namespace driftbox
