#pragma once

#include "clipboard/ClipboardItem.h"

#include <optional>
#include <vector>

#include <QtCore/QtGlobal>

namespace driftbox {

/// The clipboard history, front (newest or most recently re-used) first. Main thread only. Every
/// change is on disk when the operation returns; failures are logged, and memory keeps the change.
/// An unknown id changes nothing.
class ClipboardStore
{
public:
    ClipboardStore() = default;
    Q_DISABLE_COPY_MOVE(ClipboardStore)
    virtual ~ClipboardStore() = default;

    [[nodiscard]] virtual const std::vector<ClipboardItem>& allItems() const = 0;

    /// Puts `item` in front. `imageData` is stored for image items only.
    virtual void add(const ClipboardItem& item, const std::optional<QByteArray>& imageData) = 0;

    /// Pinning stamps the current instant, also on an item that is pinned already.
    virtual void setPinned(const ClipboardItemId& id, bool pinned) = 0;

    virtual void moveToFront(const ClipboardItemId& id) = 0;

    /// Named `delete` in the interface's vocabulary, which the language reserves.
    virtual void remove(const ClipboardItemId& id) = 0;

    virtual void clearUnpinned() = 0;

    /// Drops the unpinned items farthest from the front, until `keeping` of them are left. Pinned
    /// items stay and do not count.
    virtual void pruneUnpinned(qint64 keeping) = 0;

    /// The path of the file that holds the bytes of an image item.
    [[nodiscard]] virtual QString imageURL(const ClipboardItem& item) const = 0;
};

} // namespace driftbox
