#pragma once

#include "platform/CaretLookup.h"

#include <utility>
#include <vector>

#include <QtCore/QPointer>

namespace driftbox {

/// A caret lookup that answers immediately, or when the test calls `answerAll`.
class FakeCaretLookup final : public CaretLookup
{
    Q_OBJECT

public:
    using CaretLookup::CaretLookup;

    void caretRectangle(QObject* owner, Answer answer) override
    {
        ++requests;
        m_pending.emplace_back(owner, std::move(answer));
        if (answersAtOnce)
            answerAll(caret);
    }

    /// Answers all pending requests, oldest first.
    void answerAll(const std::optional<QRectF>& rectangle)
    {
        for (const auto& [owner, answer] : std::exchange(m_pending, {})) {
            if (owner)
                answer(rectangle);
        }
    }

    bool answersAtOnce = true;
    std::optional<QRectF> caret; ///< the immediate answer
    int requests = 0;

private:
    std::vector<std::pair<QPointer<QObject>, Answer>> m_pending;
};

} // namespace driftbox
