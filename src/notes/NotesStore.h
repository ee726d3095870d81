#pragma once

#include "notes/StickyNote.h"

#include <vector>

#include <QtCore/QByteArray>

namespace driftbox {

/// The saved notes. Every change is on disk when the operation returns; write errors are logged,
/// and the change is kept in memory. Callers must not pass drafts to `save`. Main thread only.
class NotesStore
{
public:
    NotesStore() = default;
    Q_DISABLE_COPY_MOVE(NotesStore)
    virtual ~NotesStore() = default;

    [[nodiscard]] virtual const std::vector<StickyNote>& notes() const = 0;

    /// Replaces the note with the same id, keeping its position, or adds `note` at the front.
    virtual void save(const StickyNote& note) = 0;

    /// Stores the image file of an image note unchanged, even if the note itself is not saved. Has
    /// no effect for a text note.
    virtual void saveImage(const QByteArray& data, const StickyNote& note) = 0;

    /// Removes the note but keeps its image file. Has no effect for an unknown id.
    virtual void unsave(const StickyNoteId& id) = 0;

    /// Removes the note, if it is saved, and in any case the image file named after its id.
    virtual void remove(const StickyNoteId& id) = 0;

    /// The path of an image note's file.
    [[nodiscard]] virtual QString imageURL(const StickyNote& note) const = 0;
};

} // namespace driftbox
