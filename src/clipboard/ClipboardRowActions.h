#pragma once

#include "clipboard/ClipboardItem.h"

#include <functional>
#include <vector>

namespace driftbox {

class ClipboardViewModel;

enum class ClipboardRowAction { pastePlain, recognizeText, makeNote, remove, togglePin };

/// What a row of the history offers to do with its item. The item may be one of the list that an
/// action replaces.
class ClipboardRowActions
{
public:
    using MakeNote = std::function<void(const ClipboardItem&)>;

    /// `viewModel` must outlive this.
    ClipboardRowActions(ClipboardViewModel& viewModel, MakeNote onMakeNote);

    /// The actions that show while the row has the pointer, in order.
    [[nodiscard]] static std::vector<ClipboardRowAction> hoverActions(const ClipboardItem& item);

    [[nodiscard]] static QString systemImage(ClipboardRowAction action);
    [[nodiscard]] static QString help(ClipboardRowAction action, const ClipboardItem& item);

    /// The text in the item's picture is being recognized: the action shows that it is busy.
    [[nodiscard]] bool isBusy(ClipboardRowAction action, const ClipboardItem& item) const;

    /// A busy action does nothing.
    void perform(ClipboardRowAction action, const ClipboardItem& item);
    /// What a click on the row does.
    void pick(const ClipboardItem& item);
    /// Pastes text without its looks, of a picture the text in it.
    void pasteAsText(const ClipboardItem& item);

private:
    ClipboardViewModel& m_viewModel;
    MakeNote m_onMakeNote;
};

} // namespace driftbox
