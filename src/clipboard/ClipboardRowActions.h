#pragma once

#include "clipboard/ClipboardItem.h"

#include <functional>
#include <vector>

namespace driftbox {

class ClipboardViewModel;

enum class ClipboardRowAction { pastePlain, recognizeText, makeNote, remove, togglePin };

/// The actions that a row of the history offers for its item. The item passed in may belong to a
/// list that the action replaces.
class ClipboardRowActions
{
public:
    using MakeNote = std::function<void(const ClipboardItem&)>;

    /// `viewModel` must outlive this.
    ClipboardRowActions(ClipboardViewModel& viewModel, MakeNote onMakeNote);

    /// The actions shown while the pointer is over the row, in order.
    [[nodiscard]] static std::vector<ClipboardRowAction> hoverActions(const ClipboardItem& item);

    [[nodiscard]] static QString systemImage(ClipboardRowAction action);
    [[nodiscard]] static QString help(ClipboardRowAction action, const ClipboardItem& item);

    /// Whether the action is in progress: the text in the item's picture is being recognized.
    [[nodiscard]] bool isBusy(ClipboardRowAction action, const ClipboardItem& item) const;

    /// Has no effect while the action is busy.
    void perform(ClipboardRowAction action, const ClipboardItem& item);
    /// The action of a click on the row.
    void pick(const ClipboardItem& item);
    /// Pastes a text item without formatting, or the recognized text of an image item.
    void pasteAsText(const ClipboardItem& item);

private:
    ClipboardViewModel& m_viewModel;
    MakeNote m_onMakeNote;
};

} // namespace driftbox
