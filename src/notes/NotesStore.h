#pragma once

#include "notes/StickyNote.h"

#include <vector>

#include <QtCore/QByteArray>

namespace driftbox {

/// The saved notes. Main thread only. Every change is on disk when the operation returns; failures
/// are logged, and memory keeps the change. What is given to it is saved: that drafts stay away is
/// the callers' business.
class NotesStore
{
public:
    NotesStore() = default;
    Q_DISABLE_COPY_MOVE(NotesStore)
    virtual ~NotesStore() = default;

    [[nodiscard]] virtual const std::vector<StickyNote>& notes() const = 0;

    /// Replaces the note with the same id in its place, or puts `note` in front.
    virtual void save(const StickyNote& note) = 0;

    /// Writes the bytes of an image note, unchanged; nothing for a text note. The note need not be
    /// saved.
    virtual void saveImage(const QByteArray& data, const StickyNote& note) = 0;

    /// Removes the note and leaves its image file. Nothing for an unknown id.
    virtual void unsave(const StickyNoteId& id) = 0;

    /// Removes the note, when there is one with this id, and in any case the image file named after
    /// the id. Named `delete` in the interface's vocabulary, which the language reserves.
    virtual void remove(const StickyNoteId& id) = 0;

    /// The path of the file that holds the bytes of an image note.
    [[nodiscard]] virtual QString imageURL(const StickyNote& note) const = 0;
};

} // namespace driftbox
