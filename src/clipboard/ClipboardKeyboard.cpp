#include "clipboard/ClipboardKeyboard.h"

#include "clipboard/ClipboardListModel.h"
#include "clipboard/ClipboardRowActions.h"
#include "clipboard/ClipboardSelection.h"
#include "clipboard/ClipboardViewModel.h"

namespace driftbox {

ClipboardKeyboard::ClipboardKeyboard(const ClipboardViewModel& viewModel,
                                     const ClipboardListModel& rows, ClipboardSelection& selection,
                                     ClipboardRowActions& actions)
    : m_viewModel(viewModel)
    , m_rows(rows)
    , m_selection(selection)
    , m_actions(actions)
{
}

bool ClipboardKeyboard::handle(const KeyPress& press, int rowsPerPage)
{
    const Qt::KeyboardModifiers modifiers = press.modifiers & ~Qt::KeypadModifier;
    if (modifiers == Qt::NoModifier && moveSelection(press.key, rowsPerPage))
        return true;
    return act({press.key, modifiers, press.isRepeated});
}

bool ClipboardKeyboard::moveSelection(Qt::Key key, int rowsPerPage)
{
    const bool fieldIsEmpty = m_viewModel.query().isEmpty();
    switch (key) {
    case Qt::Key_Up:
        m_selection.moveBy(-1);
        return true;
    case Qt::Key_Down:
        m_selection.moveBy(1);
        return true;
    case Qt::Key_PageUp:
        m_selection.moveBy(-rowsPerPage);
        return true;
    case Qt::Key_PageDown:
        m_selection.moveBy(rowsPerPage);
        return true;
    case Qt::Key_Home:
        if (fieldIsEmpty)
            m_selection.selectFirst();
        return fieldIsEmpty;
    case Qt::Key_End:
        if (fieldIsEmpty)
            m_selection.selectLast();
        return fieldIsEmpty;
    default:
        return false;
    }
}

// Whatever the key is held down for, it acts once; and where there is no item it does nothing.
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
    // On some keyboards the digits need Shift.
    const bool isDigit = press.key >= Qt::Key_1 && press.key <= Qt::Key_9;
    const bool isControl = (press.modifiers & ~Qt::ShiftModifier) == Qt::ControlModifier;
    return isDigit && isControl && withItem(press, press.key - Qt::Key_1, pick);
}

} // namespace driftbox
