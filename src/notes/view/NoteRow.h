#pragma once

#include "notes/StickyNote.h"
#include "ui/list/PreviewText.h"
#include "ui/list/RowDelegate.h"

#include <QtCore/QCache>

namespace driftbox {

class NoteManager;
class NotesListModel;
class RowLayout;

/// A row of the list of notes: the note's color, kind and text, the time of its last change,
/// whether it is saved, and the actions that are shown while the row is hovered or selected.
class NoteRow final : public RowDelegate
{
public:
    /// Both arguments must outlive this.
    NoteRow(const NotesListModel& rows, NoteManager& manager);

    [[nodiscard]] int heightOfRow(int row) const override;
    [[nodiscard]] QString help() const override;
    /// Copy, then delete.
    [[nodiscard]] std::vector<RowButton> buttons(const QModelIndex& index,
                                                 QSize rowSize) const override;
    void paint(QPainter& painter, const QRect& rect, const QModelIndex& index,
               const RowState& state) const override;
    void pick(const QModelIndex& index) override;
    void press(const QModelIndex& index, int button) override;

private:
    struct Preview
    {
        QString text;
        PreviewText lines;
    };

    [[nodiscard]] const StickyNote& noteAt(const QModelIndex& index) const;
    [[nodiscard]] const PreviewText& preview(const StickyNote& note, qreal width) const;
    void paintNote(QPainter& painter, const StickyNote& note, const QRect& area) const;
    static void paintActions(QPainter& painter, const RowLayout& layout, const RowState& state);

    const NotesListModel& m_rows;
    NoteManager& m_manager;
    mutable QCache<StickyNoteId, Preview> m_previews; ///< of recently painted rows
};

} // namespace driftbox
