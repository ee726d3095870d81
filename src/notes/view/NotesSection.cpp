#include "notes/view/NotesSection.h"

#include "notes/view/NotesSectionView.h"

using namespace Qt::StringLiterals;

namespace driftbox {

NotesSection::NotesSection(NoteManager& manager, const TextExchange& exchange)
    : m_manager(manager)
    , m_exchange(exchange)
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
    return new NotesSectionView(m_manager, m_exchange, parent);
}

} // namespace driftbox
