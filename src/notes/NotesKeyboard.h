#pragma once

#include "notes/StickyNote.h"
#include "platform/KeyPress.h"

namespace driftbox {

class NoteManager;
class NotesListModel;
class RowSelection;

/// The list of notes by keyboard, while the typing goes to the search field: the arrows and the
/// page keys move the selection, Enter brings the note to the front, Control and a digit do so by
/// place. Home, End and Delete are the list's only while the field is empty.
class NotesKeyboard
{
public:
    /// All arguments must outlive this.
    NotesKeyboard(NoteManager& manager, const NotesListModel& rows, RowSelection& selection);

    /// Whether the key press is the list's, and done; all others are the search field's. A page has
    /// `rowsPerPage` rows.
    bool handle(const KeyPress& press, int rowsPerPage);

private:
    using Action = void (NoteManager::*)(StickyNoteId);

    [[nodiscard]] bool act(const KeyPress& press);
    bool withNote(const KeyPress& press, int row, Action action);

    NoteManager& m_manager;
    const NotesListModel& m_rows;
    RowSelection& m_selection;
};

} // namespace driftbox
