#include "clipboard/ClipboardRowActions.h"

#include "clipboard/ClipboardViewModel.h"

using namespace Qt::StringLiterals;

namespace driftbox {

using Action = ClipboardRowAction;

ClipboardRowActions::ClipboardRowActions(ClipboardViewModel& viewModel, MakeNote onMakeNote)
    : m_viewModel(viewModel)
    , m_onMakeNote(std::move(onMakeNote))
{
}

std::vector<Action> ClipboardRowActions::hoverActions(const ClipboardItem& item)
{
    if (item.kind == ClipboardItem::Kind::image)
        return {Action::recognizeText, Action::makeNote, Action::remove};
    // An item without rich text is pasted as plain text anyway.
    if (!item.rtfData)
        return {Action::makeNote, Action::remove};
    return {Action::pastePlain, Action::makeNote, Action::remove};
}

QString ClipboardRowActions::systemImage(Action action)
{
    switch (action) {
    case Action::pastePlain:
        return u"doc.plaintext"_s;
    case Action::recognizeText:
        return u"text.viewfinder"_s;
    case Action::makeNote:
        return u"note.text"_s;
    case Action::remove:
        return u"trash"_s;
    case Action::togglePin:
        return u"pin.fill"_s;
    }
    Q_UNREACHABLE();
}

QString ClipboardRowActions::help(Action action, const ClipboardItem& item)
{
    switch (action) {
    case Action::pastePlain:
        return u"Paste as plain text"_s;
    case Action::recognizeText:
        return u"Paste text in image (OCR)"_s;
    case Action::makeNote:
        return u"Make a sticky note"_s;
    case Action::remove:
        return u"Delete"_s;
    case Action::togglePin:
        return item.isPinned() ? u"Unpin"_s : u"Pin (survives clear & reboot)"_s;
    }
    Q_UNREACHABLE();
}

bool ClipboardRowActions::isBusy(Action action, const ClipboardItem& item) const
{
    return action == Action::recognizeText && m_viewModel.ocrProcessingId() == item.id;
}

void ClipboardRowActions::perform(Action action, const ClipboardItem& item)
{
    if (isBusy(action, item))
        return;
    switch (action) {
    case Action::pastePlain:
        return m_viewModel.copyBackAsPlain(item);
    case Action::recognizeText:
        return m_viewModel.pasteImageText(item);
    case Action::makeNote:
        return m_onMakeNote(item);
    case Action::remove:
        return m_viewModel.remove(item);
    case Action::togglePin:
        return m_viewModel.togglePin(item);
    }
}

void ClipboardRowActions::pick(const ClipboardItem& item)
{
    m_viewModel.pick(item);
}

void ClipboardRowActions::pasteAsText(const ClipboardItem& item)
{
    const bool isText = item.kind == ClipboardItem::Kind::text;
    perform(isText ? Action::pastePlain : Action::recognizeText, item);
}

} // namespace driftbox
