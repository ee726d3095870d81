#include "notes/NotesListModel.h"

#include "core/CaseInsensitiveMatcher.h"
#include "core/RowTime.h"
#include "notes/NoteManager.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

bool isSameText(const std::optional<QString>& one, const std::optional<QString>& other)
{
    // Copies of a string share its data implicitly, so comparing pointers is usually enough.
    const bool isShared =
        one && other && one->constData() == other->constData() && one->size() == other->size();
    return isShared || one == other;
}

bool looksSame(const StickyNote& one, const StickyNote& other)
{
    return one.color == other.color && one.isSaved == other.isSaved &&
           one.updatedAt == other.updatedAt && isSameText(one.textContent, other.textContent);
}

std::vector<StickyNote> matching(const std::vector<StickyNote>& notes, const QString& query)
{
    const QString wanted = query.trimmed();
    if (wanted.isEmpty())
        return notes;

    const CaseInsensitiveMatcher matcher(wanted, QLocale());
    std::vector<StickyNote> found;
    std::ranges::copy_if(notes, std::back_inserter(found), [&matcher](const StickyNote& note) {
        return note.textContent && matcher.isIn(*note.textContent);
    });
    return found;
}

} // namespace

QString previewText(const StickyNote& note)
{
    if (note.kind == StickyNote::Kind::image)
        return u"Image"_s;
    const QString text = note.textContent.value_or(QString()).trimmed();
    return text.isEmpty() ? u"(empty)"_s : text;
}

QString noteCountText(qsizetype count)
{
    return QString::number(count) + (count == 1 ? u" note"_s : u" notes"_s);
}

NotesListModel::NotesListModel(const NoteManager& manager, QObject* parent)
    : RecordListModel(manager.notes(), parent)
    , m_manager(manager)
{
    connect(&manager, &NoteManager::notesChanged, this,
            [this] { setRecords(matching(m_manager.notes(), m_query), &looksSame); });
}

void NotesListModel::setQuery(const QString& query)
{
    if (std::exchange(m_query, query) == query)
        return;
    resetRecords(matching(m_manager.notes(), m_query));
    Q_EMIT queryChanged();
}

QVariant NotesListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const StickyNote& note = record(index.row());
    switch (role) {
    case TimeRole:
        return rowTime(note.updatedAt);
    case Qt::AccessibleTextRole:
        return previewText(note);
    default:
        return {};
    }
}

} // namespace driftbox
