#include "notes/view/NotesSection.h"

#include "core/PasteboardWriter.h"
#include "notes/view/NotesSectionView.h"

using namespace Qt::StringLiterals;

namespace driftbox {

NotesSection::NotesSection(NoteManager& manager, const Pasteboard& pasteboard,
                           PasteboardWriter& pasteboardWriter)
    : m_manager(manager)
    , m_pasteboard(pasteboard)
    , m_pasteboardWriter(pasteboardWriter)
{
}

QString NotesSection::id() const
{
    return u"notes"_s;
}

QString NotesSection::title() const
{
    return u"Notes"_s;
}

QString NotesSection::systemImage() const
{
    return u"note.text"_s;
}

QWidget* NotesSection::makeRootView(QWidget* parent)
{
    const TextExchange exchange{
        .pasteboardText = [this] { return m_pasteboard.content().text.value_or(QString()); },
        .copyText = [this](const QString& text) { m_pasteboardWriter.write({.text = text}); }};
    return new NotesSectionView(m_manager, exchange, parent);
}

} // namespace driftbox
