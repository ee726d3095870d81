#pragma once

#include "platform/SelectedText.h"

#include <memory>

#include <QtCore/QPointer>

namespace driftbox {

class ClipboardThread;
class TaskRunner;
struct RawContent;

/// The primary selection of the compositor.
class WaylandSelectedText final : public QObject, public SelectedText
{
    Q_OBJECT

public:
    /// All of them must outlive this.
    WaylandSelectedText(ClipboardThread& thread, TaskRunner& taskRunner);
    ~WaylandSelectedText() override;

    void ask(QObject* owner, Answer answer) override;

private:
    void textRead(quint64 request, const std::shared_ptr<RawContent>& content);

    ClipboardThread& m_thread;
    TaskRunner& m_taskRunner;
    quint64 m_request = 0;
    QPointer<QObject> m_owner;
    Answer m_answer;
};

} // namespace driftbox
