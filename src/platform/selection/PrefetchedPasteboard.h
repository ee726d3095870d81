#pragma once

#include "platform/Pasteboard.h"
#include "platform/selection/PasteboardTargets.h"

namespace driftbox {

class TaskRunner;

/// A pasteboard that keeps its content in memory and counts the changes. Main thread only.
class PrefetchedPasteboard : public Pasteboard
{
    Q_OBJECT

public:
    [[nodiscard]] qint64 changeCount() const final { return m_changeCount; }
    [[nodiscard]] PasteboardContent content() const final { return m_content; }

protected:
    /// `taskRunner` must outlive the pasteboard.
    explicit PrefetchedPasteboard(TaskRunner& taskRunner);

    /// Replaces the content, clears the opaque formats and increments the count.
    void setContent(const PasteboardContent& content);
    /// Sets the content from before the program started. The count stays as it is.
    void setInitialContent(const PasteboardContent& content);
    void keepOpaqueFormat(const QByteArray& type, const QByteArray& bytes);
    [[nodiscard]] const OpaqueFormats& opaqueFormats() const { return m_opaque; }
    [[nodiscard]] bool isBlank() const { return m_content.isEmpty() && m_opaque.isEmpty(); }
    [[nodiscard]] TaskRunner& taskRunner() const { return m_taskRunner; }

private:
    TaskRunner& m_taskRunner;
    PasteboardContent m_content;
    OpaqueFormats m_opaque;
    qint64 m_changeCount = 0;
};

} // namespace driftbox
