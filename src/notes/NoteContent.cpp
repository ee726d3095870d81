#include "notes/NoteContent.h"

#include "notes/NotesStore.h"
#include "platform/FileSystem.h"

#include <QtCore/QBuffer>
#include <QtGui/QImageReader>

namespace driftbox {

namespace {

// The maximum size of a note at a device pixel ratio of 2.
constexpr QSize maxImageSize{3200, 4000};

} // namespace

PasteboardContent pasteboardContent(const StickyNote& note, const NotesStore& store,
                                    const FileSystem& fileSystem)
{
    if (note.kind == StickyNote::Kind::text)
        return {.text = note.textContent.value_or(QString())};
    return {.png = fileSystem.read(store.imageURL(note))};
}

std::optional<QSizeF> noteImageSize(const QByteArray& bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    const QImageReader reader(&buffer);
    const QSize size = reader.size();
    if (size.isEmpty())
        return std::nullopt;
    const bool isRotated = reader.transformation() & QImageIOHandler::TransformationRotate90;
    return isRotated ? size.transposed() : size;
}

QImage decodedNoteImage(const QByteArray& bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.width() > maxImageSize.width() || size.height() > maxImageSize.height())
        reader.setScaledSize(
            size.scaled(maxImageSize, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    return reader.read();
}

} // namespace driftbox
