#include "clipboard/ClipboardKeyboard.h"

#include "clipboard/ClipboardListModel.h"
#include "clipboard/ClipboardRowActions.h"
#include "clipboard/ClipboardViewModel.h"
#include "core/RowSelection.h"
#include "core/RowShortcut.h"

namespace driftbox {

ClipboardKeyboard::ClipboardKeyboard(const ClipboardViewModel& viewModel,
                                     const ClipboardListModel& rows, RowSelection& selection,
                                     ClipboardRowActions& actions)
    : m_viewModel(viewModel)
    , m_rows(rows)
    , m_selection(selection)
    , m_actions(actions)
{
}

bool ClipboardKeyboard::handle(const KeyPress& press, int rowsPerPage)
{
    return m_selection.moveByKey(press, rowsPerPage, m_viewModel.query().isEmpty()) ||
           act({press.key, press.modifiers & ~Qt::KeypadModifier, press.isRepeated});
}

// Handled, but without effect, on auto-repeat and for a row that does not exist.
template <typename Act>
bool ClipboardKeyboard::withItem(const KeyPress& press, int row, Act act) const
{
    if (!press.isRepeated && row >= 0 && row < m_rows.rowCount())
        act(m_rows.item(row));
    return true;
}

bool ClipboardKeyboard::act(const KeyPress& press)
{
    const int selected = m_selection.row();
    const auto perform = [this](ClipboardRowAction action) {
        return [this, action](const ClipboardItem& item) { m_actions.perform(action, item); };
    };
    const auto pick = [this](const ClipboardItem& item) { m_actions.pick(item); };
    const auto pasteAsText = [this](const ClipboardItem& item) { m_actions.pasteAsText(item); };

    switch (press.key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (press.modifiers == Qt::ShiftModifier)
            return withItem(press, selected, pasteAsText);
        return press.modifiers == Qt::NoModifier && withItem(press, selected, pick);
    case Qt::Key_Delete:
        return press.modifiers == Qt::NoModifier && m_viewModel.query().isEmpty() &&
               withItem(press, selected, perform(ClipboardRowAction::remove));
    case Qt::Key_P:
        return press.modifiers == Qt::ControlModifier &&
               withItem(press, selected, perform(ClipboardRowAction::togglePin));
    default:
        break;
    }
    const auto row = rowShortcutOf(press);
    return row && withItem(press, *row, pick);
}

} // namespace driftbox
