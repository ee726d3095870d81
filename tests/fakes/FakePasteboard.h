#pragma once

#include "platform/Pasteboard.h"

namespace driftbox {

/// A pasteboard to which the test copies on behalf of other applications.
class FakePasteboard final : public Pasteboard
{
public:
    using Pasteboard::Pasteboard;

    [[nodiscard]] qint64 changeCount() const override { return m_changeCount; }
    [[nodiscard]] PasteboardContent content() const override { return m_content; }
    void write(const PasteboardContent& content) override
    {
        copy(content);
        ++writes;
    }

    /// Another application copies.
    void copy(const PasteboardContent& content)
    {
        m_content = content;
        ++m_changeCount;
    }
    /// Delivers the content from before the program's start.
    void deliverInitialContent(const PasteboardContent& content)
    {
        m_content = content;
        Q_EMIT initialContentArrived();
    }

    int writes = 0;

private:
    PasteboardContent m_content;
    qint64 m_changeCount = 0;
};

} // namespace driftbox
