#include "platform/wayland/clipboard/WaylandPasteboard.h"

#include "platform/selection/ContentDecoding.h"
#include "platform/wayland/clipboard/ClipboardThread.h"
#include "platform/wayland/clipboard/DataControlClipboard.h"

#include <utility>

namespace driftbox {

WaylandPasteboard::WaylandPasteboard(ClipboardThread& thread, TaskRunner& taskRunner)
    : PrefetchedPasteboard(taskRunner)
    , m_thread(thread)
{
    const auto& clipboard = thread.clipboard();
    connect(&clipboard, &DataControlClipboard::contentRead, this, &WaylandPasteboard::contentRead);
    connect(&clipboard, &DataControlClipboard::opaqueFormatRead, this,
            &WaylandPasteboard::opaqueFormatRead);
    connect(&clipboard, &DataControlClipboard::ownerVanished, this,
            &WaylandPasteboard::ownerVanished);
    connect(&clipboard, &DataControlClipboard::cleared, this, &WaylandPasteboard::cleared);
}

WaylandPasteboard::~WaylandPasteboard() = default;

void WaylandPasteboard::write(const PasteboardContent& content)
{
    m_decoding.reset();
    m_hasOwnerVanished = false;
    setContent(content);
    claim(OfferedContent(content));
}

void WaylandPasteboard::claim(const OfferedContent& content)
{
    ++m_claim;
    DataControlClipboard& clipboard = m_thread.clipboard();
    QMetaObject::invokeMethod(
        &clipboard, [&clipboard, number = m_claim, content] { clipboard.claim(number, content); },
        Qt::QueuedConnection);
}

void WaylandPasteboard::contentRead(quint64 claim, const std::shared_ptr<RawContent>& content,
                                    bool isInitial)
{
    if (claim != m_claim)
        return;
    m_hasOwnerVanished = false;
    m_early.clear();
    m_decoding = std::make_unique<QObject>();
    decode(std::move(*content), taskRunner(), m_decoding.get(),
           [this, isInitial](const PasteboardContent& decoded) {
               contentDecoded(decoded, isInitial);
           });
}

void WaylandPasteboard::contentDecoded(const PasteboardContent& content, bool isInitial)
{
    m_decoding.release()->deleteLater(); // it is calling
    if (isInitial && changeCount() == 0)
        setInitialContent(content);
    else
        setContent(content);
    for (const auto& [type, bytes] : std::exchange(m_early, {}).asKeyValueRange())
        keepOpaqueFormat(type, bytes);
    if (std::exchange(m_hasOwnerVanished, false))
        keepOffering();
}

void WaylandPasteboard::opaqueFormatRead(quint64 claim, const QByteArray& type,
                                         const QByteArray& bytes)
{
    if (claim != m_claim)
        return;
    if (m_decoding)
        m_early.insert(type, bytes);
    else
        keepOpaqueFormat(type, bytes);
}

void WaylandPasteboard::ownerVanished(quint64 claim)
{
    if (claim != m_claim)
        return;
    if (m_decoding)
        m_hasOwnerVanished = true;
    else
        keepOffering();
}

void WaylandPasteboard::cleared(quint64 claim)
{
    if (claim == m_claim)
        setContent({});
}

void WaylandPasteboard::keepOffering()
{
    if (!isBlank())
        claim(OfferedContent(content(), opaqueFormats()));
}

} // namespace driftbox
