#pragma once

#include "notes/StickyNote.h"
#include "platform/Pasteboard.h"

#include <optional>

#include <QtCore/QSizeF>
#include <QtGui/QImage>

namespace driftbox {

class FileSystem;
class NotesStore;

/// The content that copying a note puts on the pasteboard: its text, or the bytes of its image
/// file; empty if the file cannot be read.
[[nodiscard]] PasteboardContent pasteboardContent(const StickyNote& note, const NotesStore& store,
                                                  const FileSystem& fileSystem);

/// The upright size, in pixels, of the image file `bytes`; nullopt if it is not an image. Reads
/// only the header.
[[nodiscard]] std::optional<QSizeF> noteImageSize(const QByteArray& bytes);

/// Decodes an image file, upright and scaled down to the maximum size of a note; null if `bytes`
/// are not an image. Thread-safe.
[[nodiscard]] QImage decodedNoteImage(const QByteArray& bytes);

} // namespace driftbox
