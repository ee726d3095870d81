#include "clipboard/ClipboardViewModel.h"

#include "clipboard/ClipboardStore.h"
#include "clipboard/TextRecognizer.h"
#include "clipboard/ThumbnailCache.h"
#include "core/AppSettings.h"
#include "core/PasteRequest.h"
#include "core/PasteboardWriter.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/TaskRunner.h"

#include <algorithm>
#include <memory>
#include <utility>

#include <QtCore/QPointer>

namespace driftbox {

using Kind = ClipboardItem::Kind;

ClipboardViewModel::ClipboardViewModel(const ClipboardServices& services, QObject* parent)
    : QObject(parent)
    , m_services(services)
    , m_items(services.store.allItems())
{
    services.monitor.setOnCapture([self = QPointer<ClipboardViewModel>(this)](
                                      const ClipboardMonitor::CapturedContent& content) {
        if (self)
            self->handleCapture(content);
    });
    connect(&services.thumbnails, &ThumbnailCache::imageLoaded, this,
            &ClipboardViewModel::imageChanged);
}

void ClipboardViewModel::handleCapture(const ClipboardMonitor::CapturedContent& content)
{
    const bool isText = content.kind == Kind::text;
    const ClipboardItem item{
        .kind = content.kind,
        .textContent = isText ? content.text : std::nullopt,
        .rtfData = isText ? content.rtfData : std::nullopt,
        .createdAt = m_services.clock.now(),
    };
    m_services.store.add(item, content.imageData);
    m_services.store.pruneUnpinned(m_services.settings.clipboardCapacity());
    refresh();
}

void ClipboardViewModel::refresh()
{
    m_items = m_services.store.allItems();
    m_search.reset();
    Q_EMIT itemsChanged();
}

qsizetype ClipboardViewModel::pinnedCount() const
{
    return std::ranges::count_if(m_items, &ClipboardItem::isPinned);
}

qsizetype ClipboardViewModel::unpinnedCount() const
{
    return static_cast<qsizetype>(m_items.size()) - pinnedCount();
}

void ClipboardViewModel::setQuery(const QString& query)
{
    if (std::exchange(m_query, query) != query)
        Q_EMIT queryChanged();
}

std::vector<ClipboardItem> ClipboardViewModel::visibleItems() const
{
    const QString wanted = m_query.trimmed();
    if (wanted.isEmpty()) {
        m_search.reset();
        return m_items;
    }
    const ClipboardSearch::Indices& indices = m_search.find(m_items, wanted);
    std::vector<ClipboardItem> visible;
    visible.reserve(indices.size());
    for (const auto index : indices)
        visible.push_back(m_items[index]);
    return visible;
}

void ClipboardViewModel::copyBack(const ClipboardItem& item)
{
    if (item.kind == Kind::image) {
        const auto bytes = m_services.fileSystem.read(m_services.store.imageURL(item));
        if (!bytes)
            return;
        m_services.pasteboardWriter.write({.png = bytes});
    } else {
        m_services.pasteboardWriter.write(
            {.text = item.textContent.value_or(QString()), .rtf = item.rtfData});
    }
    m_services.store.moveToFront(item.id);
    refresh();
}

void ClipboardViewModel::pick(const ClipboardItem& item)
{
    copyBack(item);
    m_services.pasteRequest.post();
}

void ClipboardViewModel::copyBackAsPlain(const ClipboardItem& item)
{
    m_services.pasteboardWriter.write({.text = item.textContent.value_or(QString())});
    m_services.store.moveToFront(item.id);
    refresh();
    m_services.pasteRequest.post();
}

void ClipboardViewModel::pasteImageText(const ClipboardItem& item)
{
    if (item.kind != Kind::image)
        return;
    const auto bytes = m_services.fileSystem.read(m_services.store.imageURL(item));
    if (!bytes)
        return;

    setOcrProcessingId(item.id);
    const auto text = std::make_shared<QString>();
    const auto work = [text, bytes, &recognizer = m_services.recognizer] {
        *text = recognizer.recognizeText(*bytes);
    };
    const auto done = [this, text] {
        setOcrProcessingId(std::nullopt);
        if (text->isEmpty())
            return;
        m_services.pasteboardWriter.write({.text = *text});
        m_services.pasteRequest.post();
    };
    m_services.tasks.run(this, work, done);
}

void ClipboardViewModel::setOcrProcessingId(const std::optional<ClipboardItemId>& id)
{
    if (std::exchange(m_ocrProcessingId, id) != id)
        Q_EMIT ocrProcessingIdChanged();
}

void ClipboardViewModel::togglePin(const ClipboardItem& item)
{
    m_services.store.setPinned(item.id, !item.isPinned());
    refresh();
}

void ClipboardViewModel::remove(const ClipboardItem& item)
{
    m_services.store.remove(item.id);
    m_services.thumbnails.remove(item.id);
    refresh();
}

void ClipboardViewModel::clearUnpinned()
{
    m_services.store.clearUnpinned();
    m_services.thumbnails.clear();
    refresh();
}

QImage ClipboardViewModel::image(const ClipboardItem& item) const
{
    if (item.kind != Kind::image)
        return {};
    return m_services.thumbnails.image(item.id, m_services.store.imageURL(item));
}

void ClipboardViewModel::setImagePixelRatio(qreal ratio)
{
    m_services.thumbnails.setPixelRatio(ratio);
}

} // namespace driftbox
