#pragma once

#include "core/RecordListModel.h"
#include "notes/StickyNote.h"

namespace driftbox {

class NoteManager;

/// The notes that match a query as rows, in the manager's order: all of them if the query is blank,
/// else those whose text contains it, ignoring case. A change of the query resets the model.
class NotesListModel : public RecordListModel<StickyNote>
{
    Q_OBJECT

public:
    enum Role {
        TimeRole = Qt::UserRole, ///< QString; when it was updated
    };

    /// `manager` must outlive the model.
    explicit NotesListModel(const NoteManager& manager, QObject* parent = nullptr);

    [[nodiscard]] const QString& query() const { return m_query; }
    void setQuery(const QString& query);

    /// Besides the role: the accessible text of a row.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

Q_SIGNALS:
    void queryChanged();

private:
    const NoteManager& m_manager;
    QString m_query;
};

/// The preview of a note: its text without surrounding white space, or a placeholder if it is empty
/// or an image.
[[nodiscard]] QString previewText(const StickyNote& note);

/// "1 note", "3 notes".
[[nodiscard]] QString noteCountText(qsizetype count);

} // namespace driftbox
