#pragma once

#include "clipboard/ClipboardManifest.h"
#include "clipboard/ClipboardStore.h"
#include "core/ManifestFile.h"

namespace driftbox {

class Clock;
class FileSystem;

/// Keeps the history in memory and writes it to "manifest.json" in the root folder after every
/// change; image files are in the subfolder "images". If the manifest cannot be decoded, this is
/// logged and the history starts empty.
class FileClipboardStore final : public ClipboardStore
{
public:
    /// `fileSystem` and `clock` must outlive the store.
    FileClipboardStore(FileSystem& fileSystem, const Clock& clock, const QString& rootURL);

    [[nodiscard]] const std::vector<ClipboardItem>& allItems() const override { return m_items; }
    void add(const ClipboardItem& item, const std::optional<QByteArray>& imageData) override;
    void setPinned(const ClipboardItemId& id, bool pinned) override;
    void moveToFront(const ClipboardItemId& id) override;
    void remove(const ClipboardItemId& id) override;
    void clearUnpinned() override;
    void pruneUnpinned(qint64 keeping) override;
    [[nodiscard]] QString imageURL(const ClipboardItem& item) const override;

private:
    void bootstrap();
    void persist();
    void writeFile(const QByteArray& bytes, const QString& path);
    void removeImageFile(const ClipboardItem& item);
    [[nodiscard]] std::vector<ClipboardItem>::iterator find(const ClipboardItemId& id);
    /// Removes all unpinned items except the first `keeping`.
    void dropUnpinned(size_t keeping);

    FileSystem& m_fileSystem;
    const Clock& m_clock;
    QString m_rootURL;
    QString m_imagesURL;
    ManifestFile m_manifest;
    ClipboardManifest::Writer m_writer;
    std::vector<ClipboardItem> m_items;
};

} // namespace driftbox
