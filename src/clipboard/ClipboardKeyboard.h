#pragma once

#include "platform/KeyPress.h"

namespace driftbox {

class ClipboardListModel;
class ClipboardRowActions;
class RowSelection;
class ClipboardViewModel;

/// The history by keyboard, while the typing goes to the search field: the arrows and the page keys
/// move the selection, Enter picks, Shift+Enter pastes as text, Control and a digit pick by place,
/// Control+P pins. Home, End and Delete are the list's only while the field is empty.
class ClipboardKeyboard
{
public:
    /// All arguments must outlive this.
    ClipboardKeyboard(const ClipboardViewModel& viewModel, const ClipboardListModel& rows,
                      RowSelection& selection, ClipboardRowActions& actions);

    /// Whether the key press is the list's, and done; all others are the search field's. A page has
    /// `rowsPerPage` rows.
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
