#pragma once

#include "notes/StickyNote.h"
#include "platform/KeyPress.h"

namespace driftbox {

class NoteManager;
class NotesListModel;
class RowSelection;

/// Keyboard control of the list of notes while the search field has the focus: the arrow and page
/// keys move the selection, Enter brings the note to the front, Control and a digit do so by row
/// number. Home, End and Delete apply to the list only while the field is empty.
class NotesKeyboard
{
public:
    /// All arguments must outlive this.
    NotesKeyboard(NoteManager& manager, const NotesListModel& rows, RowSelection& selection);

    /// Returns whether the key press was handled; all others belong to the search field.
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
