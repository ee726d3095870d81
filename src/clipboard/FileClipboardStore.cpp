#include "clipboard/FileClipboardStore.h"

#include "platform/Clock.h"
#include "platform/FileSystem.h"

#include <algorithm>

#include <QtCore/QLoggingCategory>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(fileClipboardStoreLog, "FileClipboardStore")

} // namespace

FileClipboardStore::FileClipboardStore(FileSystem& fileSystem, const Clock& clock,
                                       const QString& rootURL)
    : m_fileSystem(fileSystem)
    , m_clock(clock)
    , m_rootURL(rootURL)
    , m_imagesURL(rootURL + u"/images"_s)
    , m_manifest(fileSystem, rootURL + u"/manifest.json"_s)
{
    bootstrap();
}

void FileClipboardStore::bootstrap()
{
    m_fileSystem.createFolder(m_rootURL);
    m_fileSystem.createFolder(m_imagesURL);

    const auto text = m_manifest.read();
    if (!text)
        return;
    auto items = ClipboardManifest::decode(*text);
    if (!items) {
        qCCritical(fileClipboardStoreLog).noquote()
            << u"Manifest corrupt, starting empty: %1"_s.arg(items.error().message);
        m_manifest.markCorrupt(*text);
        return;
    }
    m_items = std::move(*items);
}

void FileClipboardStore::persist()
{
    if (const auto written = m_manifest.write(m_writer.encode(m_items)); !written)
        qCCritical(fileClipboardStoreLog).noquote()
            << u"Failed to persist manifest: %1"_s.arg(written.error().message);
}

void FileClipboardStore::writeFile(const QByteArray& bytes, const QString& path)
{
    if (const auto written = m_fileSystem.writeAtomically(path, bytes); !written) {
        qCCritical(fileClipboardStoreLog).noquote() << u"Failed to write image %1: %2"_s.arg(
            path.section(u'/', -1), written.error().message);
    }
}

void FileClipboardStore::removeImageFile(const ClipboardItem& item)
{
    if (item.kind == ClipboardItem::Kind::image)
        m_fileSystem.remove(imageURL(item));
}

std::vector<ClipboardItem>::iterator FileClipboardStore::find(const ClipboardItemId& id)
{
    return std::ranges::find(m_items, id, &ClipboardItem::id);
}

void FileClipboardStore::add(const ClipboardItem& item, const std::optional<QByteArray>& imageData)
{
    m_items.insert(m_items.begin(), item);
    if (imageData && item.kind == ClipboardItem::Kind::image)
        writeFile(*imageData, imageURL(item));
    persist();
}

void FileClipboardStore::setPinned(const ClipboardItemId& id, bool pinned)
{
    const auto item = find(id);
    if (item == m_items.end())
        return;
    item->pinnedAt = pinned ? std::optional(m_clock.now()) : std::nullopt;
    persist();
}

void FileClipboardStore::moveToFront(const ClipboardItemId& id)
{
    const auto item = find(id);
    if (item == m_items.end())
        return;
    std::rotate(m_items.begin(), item, item + 1);
    persist();
}

void FileClipboardStore::remove(const ClipboardItemId& id)
{
    const auto item = find(id);
    if (item == m_items.end())
        return;
    removeImageFile(*item);
    m_items.erase(item);
    persist();
}

void FileClipboardStore::clearUnpinned()
{
    dropUnpinned(0);
    persist();
}

void FileClipboardStore::pruneUnpinned(qint64 keeping)
{
    const auto unpinned = std::ranges::count_if(m_items, std::not_fn(&ClipboardItem::isPinned));
    if (unpinned <= keeping)
        return;
    dropUnpinned(static_cast<size_t>(std::max<qint64>(keeping, 0)));
    persist();
}

void FileClipboardStore::dropUnpinned(size_t keeping)
{
    size_t seen = 0;
    std::erase_if(m_items, [&](const ClipboardItem& item) {
        if (item.isPinned() || seen++ < keeping)
            return false;
        removeImageFile(item);
        return true;
    });
}

QString FileClipboardStore::imageURL(const ClipboardItem& item) const
{
    return m_imagesURL + u'/' + item.imageFile();
}

} // namespace driftbox
