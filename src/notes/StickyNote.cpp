#include "notes/StickyNote.h"

#include "core/ImageFileName.h"

namespace driftbox {

size_t qHash(const StickyNote& note, size_t seed)
{
    return qHashMulti(seed, note.id, static_cast<int>(note.kind), note.textContent.has_value(),
                      note.textContent.value_or(QString()), note.imageFileName.has_value(),
                      note.imageFileName.value_or(QString()), static_cast<int>(note.color),
                      note.frame, note.zoom, note.isSaved, note.createdAt.referenceSeconds(),
                      note.updatedAt.referenceSeconds());
}

QString StickyNote::imageFile() const
{
    return driftbox::imageFileName(imageFileName, id.text());
}

QString ownImageFile(const StickyNoteId& id)
{
    return driftbox::imageFileName(std::nullopt, id.text());
}

} // namespace driftbox
