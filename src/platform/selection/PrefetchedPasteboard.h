#pragma once

#include "platform/Pasteboard.h"
#include "platform/selection/PasteboardTargets.h"

namespace driftbox {

class TaskRunner;

/// The memory of a pasteboard: what is on it and how often it has changed. Main thread only.
class PrefetchedPasteboard : public Pasteboard
{
    Q_OBJECT

public:
    [[nodiscard]] qint64 changeCount() const final { return m_changeCount; }
    [[nodiscard]] PasteboardContent content() const final { return m_content; }

protected:
    /// `taskRunner` must outlive the pasteboard.
    explicit PrefetchedPasteboard(TaskRunner& taskRunner);

    /// Replaces the content and forgets the opaque formats; the count moves.
    void setContent(const PasteboardContent& content);
    /// Sets what was there before the program started; the count stays.
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
