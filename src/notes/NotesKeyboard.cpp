#include "notes/NotesKeyboard.h"

#include "core/RowSelection.h"
#include "core/RowShortcut.h"
#include "notes/NoteManager.h"
#include "notes/NotesListModel.h"

namespace driftbox {

NotesKeyboard::NotesKeyboard(NoteManager& manager, const NotesListModel& rows,
                             RowSelection& selection)
    : m_manager(manager)
    , m_rows(rows)
    , m_selection(selection)
{
}

bool NotesKeyboard::handle(const KeyPress& press, int rowsPerPage)
{
    return m_selection.moveByKey(press, rowsPerPage, m_rows.query().isEmpty()) ||
           act({press.key, press.modifiers & ~Qt::KeypadModifier, press.isRepeated});
}

bool NotesKeyboard::act(const KeyPress& press)
{
    if (press.modifiers == Qt::NoModifier) {
        if (press.key == Qt::Key_Return || press.key == Qt::Key_Enter)
            return withNote(press, m_selection.row(), &NoteManager::focus);
        if (press.key == Qt::Key_Delete && m_rows.query().isEmpty())
            return withNote(press, m_selection.row(), &NoteManager::remove);
    }
    const auto row = rowShortcutOf(press);
    return row && withNote(press, *row, &NoteManager::focus);
}

// Handled, but without effect, on auto-repeat and for a row that does not exist.
bool NotesKeyboard::withNote(const KeyPress& press, int row, Action action)
{
    if (!press.isRepeated && row >= 0 && row < m_rows.rowCount())
        (m_manager.*action)(m_rows.record(row).id);
    return true;
}

} // namespace driftbox
