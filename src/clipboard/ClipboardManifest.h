#pragma once

#include "clipboard/ClipboardItem.h"
#include "platform/Expected.h"

#include <optional>
#include <vector>

#include <QtCore/QHash>

/// The clipboard history as JSON: a compact array of items, front first, with members in a fixed
/// order, absent ones omitted, and instants as seconds since 2001-01-01T00:00:00Z. Decoding accepts
/// members in any order and ignores unknown ones, but one malformed item makes the whole manifest
/// unreadable.
namespace driftbox::ClipboardManifest {

/// One element of the array.
[[nodiscard]] QByteArray encode(const ClipboardItem& item);

/// Encodes manifests. Caches the encoded text of each item, because most items do not change from
/// one manifest to the next.
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
