#pragma once

#include "core/Identifier.h"
#include "core/NoteColor.h"
#include "platform/Instant.h"

#include <optional>

#include <QtCore/QRectF>
#include <QtCore/QString>

namespace driftbox {

using StickyNoteId = Identifier<struct StickyNoteTag>;

/// The frame of a note's window in screen space; x and y are its lower left corner. A manifest may
/// contain any values.
struct NoteFrame
{
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    [[nodiscard]] static NoteFrame fromRect(const QRectF& rect)
    {
        return {rect.x(), rect.y(), rect.width(), rect.height()};
    }
    [[nodiscard]] QRectF toRect() const { return {x, y, width, height}; }

    bool operator==(const NoteFrame&) const = default;
    friend size_t qHash(const NoteFrame& frame, size_t seed = 0)
    {
        return qHashMulti(seed, frame.x, frame.y, frame.width, frame.height);
    }
};

/// The limits of zooming.
inline constexpr double minNoteZoom = 0.6;
inline constexpr double maxNoteZoom = 2.0;

/// A note: a text, or an image, whose bytes are stored in a separate file. A plain value.
struct StickyNote
{
    enum class Kind { text, image };

    StickyNoteId id = StickyNoteId::random();
    Kind kind = Kind::text;
    std::optional<QString> textContent = {};
    std::optional<QString> imageFileName = {}; ///< images only
    NoteColor color = NoteColor::yellow;
    NoteFrame frame = {};
    double zoom = 1.0;    ///< the scale of the text
    bool isSaved = false; ///< stored on disk; else a draft, which is deleted when its window closes
    Instant createdAt = {};
    Instant updatedAt = {}; ///< the last change of anything but the frame

    bool operator==(const StickyNote&) const = default;

    /// The name of the image file: `imageFileName` if it is a plain file name, else `ownImageFile`.
    [[nodiscard]] QString imageFile() const;
};

[[nodiscard]] size_t qHash(const StickyNote& note, size_t seed = 0);

/// The file name under which this program stores a note's image: the id followed by ".png".
[[nodiscard]] QString ownImageFile(const StickyNoteId& id);

} // namespace driftbox
