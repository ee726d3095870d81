#pragma once

#include "core/Identifier.h"
#include "platform/Instant.h"

#include <optional>

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace driftbox {

using ClipboardItemId = Identifier<struct ClipboardItemTag>;

/// One entry of the clipboard history: a piece of text, with its rich-text form when the source
/// offered one, or an image, whose bytes lie in a file of their own. A plain value.
struct ClipboardItem
{
    enum class Kind { text, image };

    ClipboardItemId id = ClipboardItemId::random();
    Kind kind = Kind::text;
    std::optional<QString> textContent = {};
    std::optional<QString> imageFileName = {}; ///< set only by other versions; see `imageFile`
    std::optional<QByteArray> rtfData = {};
    Instant createdAt = {};
    std::optional<Instant> pinnedAt = {}; ///< present exactly when pinned; all else never changes

    bool operator==(const ClipboardItem&) const = default;

    [[nodiscard]] bool isPinned() const { return pinnedAt.has_value(); }

    /// The name of the file that holds the bytes of an image: `imageFileName` when it is one, else
    /// the id followed by ".png".
    [[nodiscard]] QString imageFile() const;
};

} // namespace driftbox
