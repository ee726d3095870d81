#pragma once

#include "clipboard/ClipboardItem.h"

#include <optional>
#include <vector>

#include <QtCore/QtGlobal>

namespace driftbox {

/// The clipboard history, front (newest or most recently reused) first. Every change is on disk
/// when the operation returns; write errors are logged, and the change is kept in memory. An
/// unknown id has no effect. Main thread only.
class ClipboardStore
{
public:
    ClipboardStore() = default;
    Q_DISABLE_COPY_MOVE(ClipboardStore)
    virtual ~ClipboardStore() = default;

    [[nodiscard]] virtual const std::vector<ClipboardItem>& allItems() const = 0;

    /// Adds `item` at the front. `imageData` is stored for image items only.
    virtual void add(const ClipboardItem& item, const std::optional<QByteArray>& imageData) = 0;

    /// Pinning records the current time, even if the item is pinned already.
    virtual void setPinned(const ClipboardItemId& id, bool pinned) = 0;

    virtual void moveToFront(const ClipboardItemId& id) = 0;

    virtual void remove(const ClipboardItemId& id) = 0;

    virtual void clearUnpinned() = 0;

    /// Removes unpinned items from the back until at most `keeping` of them are left. Pinned items
    /// are kept and not counted.
    virtual void pruneUnpinned(qint64 keeping) = 0;

    /// The path of an image item's file.
    [[nodiscard]] virtual QString imageURL(const ClipboardItem& item) const = 0;
};

} // namespace driftbox
