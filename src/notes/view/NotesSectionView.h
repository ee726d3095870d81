#pragma once

#include "notes/NotesKeyboard.h"
#include "notes/NotesListModel.h"
#include "notes/view/NoteRow.h"
#include "ui/list/ListPage.h"

#include <QtWidgets/QWidget>

namespace driftbox {

class NoteManager;

/// The notes' page in the panel.
class NotesSectionView final : public QWidget
{
    Q_OBJECT

public:
    /// `manager` must outlive the page.
    NotesSectionView(NoteManager& manager, const TextExchange& exchange, QWidget* parent);

private:
    void addNewNoteButton();
    void addFooter();
    void showEmptyState();

    NoteManager& m_manager;
    NotesListModel m_rows;
    NoteRow m_row;
    ListPage m_page; ///< goes before what it shows
    NotesKeyboard m_keyboard;
};

} // namespace driftbox
