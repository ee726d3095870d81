#pragma once

#include "clipboard/ClipboardItem.h"
#include "platform/Expected.h"

#include <optional>
#include <vector>

#include <QtCore/QHash>

/// The clipboard history as JSON: one array of items, front first, compact, members in a fixed
/// order, absent members left out, instants as seconds since 2001-01-01T00:00:00Z. Reading takes
/// members in any order and ignores unknown ones, but one bad item makes the whole manifest
/// unreadable.
namespace driftbox::ClipboardManifest {

/// One element of the array.
[[nodiscard]] QByteArray encode(const ClipboardItem& item);

/// Writes manifests. Remembers the text of each item between two of them, because a change concerns
/// one item and most of a manifest stays as it was.
class Writer
{
public:
    [[nodiscard]] QByteArray encode(const std::vector<ClipboardItem>& items);

private:
    struct Element
    {
        ClipboardItem item;
        QByteArray text;
    };
    QHash<ClipboardItemId, Element> m_elements;
};

Expected<std::vector<ClipboardItem>> decode(const QByteArray& text);

} // namespace driftbox::ClipboardManifest
