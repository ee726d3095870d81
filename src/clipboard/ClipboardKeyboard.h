#pragma once

#include "platform/KeyPress.h"

namespace driftbox {

class ClipboardListModel;
class ClipboardRowActions;
class RowSelection;
class ClipboardViewModel;

/// Keyboard control of the history while the search field has the focus: the arrow and page keys
/// move the selection, Enter picks, Shift+Enter pastes as text, Control and a digit pick a row by
/// number, Control+P pins. Home, End and Delete apply to the list only while the field is empty.
class ClipboardKeyboard
{
public:
    /// All arguments must outlive this.
    ClipboardKeyboard(const ClipboardViewModel& viewModel, const ClipboardListModel& rows,
                      RowSelection& selection, ClipboardRowActions& actions);

    /// Returns whether the key press was handled; all others belong to the search field.
    bool handle(const KeyPress& press, int rowsPerPage);

private:
    [[nodiscard]] bool act(const KeyPress& press);
    template <typename Act>
    bool withItem(const KeyPress& press, int row, Act act) const;

    const ClipboardViewModel& m_viewModel;
    const ClipboardListModel& m_rows;
    RowSelection& m_selection;
    ClipboardRowActions& m_actions;
};

} // namespace driftbox
