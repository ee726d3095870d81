#pragma once

#include "core/Identifier.h"
#include "platform/Instant.h"

#include <optional>

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace driftbox {

using ClipboardItemId = Identifier<struct ClipboardItemTag>;

/// One entry of the clipboard history: text, with its RTF form if the source offered one, or an
/// image, whose bytes are stored in a separate file. A plain value.
struct ClipboardItem
{
    enum class Kind { text, image };

    ClipboardItemId id = ClipboardItemId::random();
    Kind kind = Kind::text;
    std::optional<QString> textContent = {};
    std::optional<QString> imageFileName = {}; ///< written by other versions only; see `imageFile`
    std::optional<QByteArray> rtfData = {};
    Instant createdAt = {};
    std::optional<Instant> pinnedAt = {}; ///< set if pinned; the only member that ever changes

    bool operator==(const ClipboardItem&) const = default;

    [[nodiscard]] bool isPinned() const { return pinnedAt.has_value(); }

    /// The name of the image file: `imageFileName` if it is a plain file name, else the id followed
    /// by ".png".
    [[nodiscard]] QString imageFile() const;
};

} // namespace driftbox
