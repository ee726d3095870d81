#pragma once

#include "platform/SelectedText.h"

#include <utility>

#include <QtCore/QPointer>

namespace driftbox {

/// Another program's selection, delivered when the test calls `tell`.
class FakeSelectedText final : public SelectedText
{
public:
    void ask(QObject* owner, Answer answer) override
    {
        m_owner = owner;
        m_answer = std::move(answer);
        ++questions;
    }

    void tell(const QString& text)
    {
        if (const Answer answer = std::exchange(m_answer, {}); answer && m_owner)
            answer(text);
    }

    int questions = 0;

private:
    QPointer<QObject> m_owner;
    Answer m_answer;
};

} // namespace driftbox
