#include "platform/selection/PrefetchedPasteboard.h"

#include "platform/TaskRunner.h"
#include "platform/selection/ByteSizes.h"

#include <memory>
#include <utility>

namespace driftbox {

namespace {

// Freeing more memory than this takes noticeable time.
constexpr qsizetype largeContent = 4 * mebibyte;

qsizetype memoryOf(const PasteboardContent& content)
{
    const qsizetype textSize = content.text ? content.text->size() * qsizetype(sizeof(QChar)) : 0;
    const qsizetype rtfSize = content.rtf ? content.rtf->size() : 0;
    const qsizetype pngSize = content.png ? content.png->size() : 0;
    return textSize + rtfSize + pngSize;
}

} // namespace

PrefetchedPasteboard::PrefetchedPasteboard(TaskRunner& taskRunner)
    : m_taskRunner(taskRunner)
{
}

void PrefetchedPasteboard::setContent(const PasteboardContent& content)
{
    if (memoryOf(m_content) > largeContent) {
        const auto old = std::make_shared<PasteboardContent>(std::move(m_content));
        m_taskRunner.run(
            this, [old] { *old = {}; }, [] {});
    }
    m_content = content;
    m_opaque.clear();
    ++m_changeCount;
}

void PrefetchedPasteboard::setInitialContent(const PasteboardContent& content)
{
    m_content = content;
    Q_EMIT initialContentArrived();
}

void PrefetchedPasteboard::keepOpaqueFormat(const QByteArray& type, const QByteArray& bytes)
{
    m_opaque.insert(type, bytes);
}

} // namespace driftbox
