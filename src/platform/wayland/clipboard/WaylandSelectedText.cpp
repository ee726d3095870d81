#include "platform/wayland/clipboard/WaylandSelectedText.h"

#include "platform/selection/ContentDecoding.h"
#include "platform/wayland/clipboard/ClipboardThread.h"
#include "platform/wayland/clipboard/DataControlClipboard.h"

#include <utility>

namespace driftbox {

WaylandSelectedText::WaylandSelectedText(ClipboardThread& thread, TaskRunner& taskRunner)
    : m_thread(thread)
    , m_taskRunner(taskRunner)
{
    connect(&thread.clipboard(), &DataControlClipboard::selectedTextRead, this,
            &WaylandSelectedText::textRead);
}

WaylandSelectedText::~WaylandSelectedText() = default;

void WaylandSelectedText::ask(QObject* owner, Answer answer)
{
    m_owner = owner;
    m_answer = std::move(answer);
    ++m_request;
    DataControlClipboard& clipboard = m_thread.clipboard();
    QMetaObject::invokeMethod(
        &clipboard, [&clipboard, request = m_request] { clipboard.readSelectedText(request); },
        Qt::QueuedConnection);
}

void WaylandSelectedText::textRead(quint64 request, const std::shared_ptr<RawContent>& content)
{
    if (request != m_request || !m_owner)
        return;
    decode(std::move(*content), m_taskRunner, m_owner,
           [answer = std::exchange(m_answer, nullptr)](const PasteboardContent& decoded) {
               answer(decoded.text.value_or(QString()));
           });
}

} // namespace driftbox
