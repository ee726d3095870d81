#pragma once

#include "notes/StickyNote.h"
#include "platform/Pasteboard.h"

#include <optional>

#include <QtCore/QSizeF>
#include <QtGui/QImage>

namespace driftbox {

class FileSystem;
class NotesStore;

/// What copying a note puts on the pasteboard: its text, or the bytes of its image as they are on
/// disk; nothing when those cannot be read.
[[nodiscard]] PasteboardContent pasteboardContent(const StickyNote& note, const NotesStore& store,
                                                  const FileSystem& fileSystem);

/// The size in pixels, upright, of the image that `bytes` are the file of; none when they are no
/// image. Looks at the beginning of the file only.
[[nodiscard]] std::optional<QSizeF> noteImageSize(const QByteArray& bytes);

/// The image, upright, no larger than a note can show it; null when `bytes` are no image.
/// Thread-safe.
[[nodiscard]] QImage decodedNoteImage(const QByteArray& bytes);

} // namespace driftbox
