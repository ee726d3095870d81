#pragma once

#include "notes/NotesKeyboard.h"
#include "notes/NotesListModel.h"
#include "notes/view/NoteRow.h"
#include "ui/controls/SearchField.h"

#include <QtWidgets/QWidget>

namespace driftbox {

class ListPage;
class NoteManager;

/// The notes' page in the panel.
class NotesSectionView final : public QWidget
{
    Q_OBJECT

public:
    /// `manager` must outlive the page.
    NotesSectionView(NoteManager& manager, const TextExchange& exchange, QWidget* parent);
    ~NotesSectionView() override;

private:
    [[nodiscard]] ListPage* makePage(const TextExchange& exchange);
    void addNewNoteButton();
    void addFooter();
    void showEmptyState();

    NoteManager& m_manager;
    NotesListModel m_rows;
    NoteRow m_row;
    ListPage* m_page;
    NotesKeyboard m_keyboard;
};

} // namespace driftbox
