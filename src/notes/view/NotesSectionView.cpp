#include "notes/view/NotesSectionView.h"

#include "notes/NoteManager.h"
#include "ui/controls/CountLabel.h"
#include "ui/controls/SearchBar.h"
#include "ui/controls/SymbolButton.h"
#include "ui/list/PageFooter.h"

#include <functional>

#include <QtWidgets/QBoxLayout>

using namespace Qt::StringLiterals;

namespace driftbox {

NotesSectionView::NotesSectionView(NoteManager& manager, const TextExchange& exchange,
                                   QWidget* parent)
    : QWidget(parent)
    , m_manager(manager)
    , m_rows(manager)
    , m_row(m_rows, manager)
    , m_page({.listName = u"Notes"_s,
              .searchPlaceholder = u"Search notes"_s,
              .exchange = exchange,
              .rows = m_rows,
              .delegate = m_row},
             this)
    , m_keyboard(manager, m_rows, m_page.selection())
{
    setFocusProxy(&m_page);
    m_page.setKeyPressHandler(std::bind_front(&NotesKeyboard::handle, &m_keyboard));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(&m_page);
    addNewNoteButton();
    addFooter();

    connect(&m_page, &ListPage::queryEdited, &m_rows, &NotesListModel::setQuery);
    connect(&m_rows, &NotesListModel::queryChanged, this,
            [this] { m_page.searchBar().setQuery(m_rows.query()); });
    connect(&manager, &NoteManager::notesChanged, this, &NotesSectionView::showEmptyState);
    showEmptyState();
}

void NotesSectionView::addNewNoteButton()
{
    auto* button = new SymbolButton(u"plus"_s, u"New sticky note"_s, this);
    connect(button, &QAbstractButton::clicked, &m_manager, &NoteManager::newBlankNote);
    m_page.searchBar().addButton(button);
}

void NotesSectionView::addFooter()
{
    auto* footer = new PageFooter(u"xmark.circle"_s, u"Close all"_s,
                                  u"Close and delete every note"_s, &m_page);
    connect(&footer->button(), &QAbstractButton::clicked, &m_manager, &NoteManager::closeAll);
    CountLabel* count = footer->addCount();
    const auto showCount = [this, count] {
        count->setText(noteCountText(static_cast<qsizetype>(m_manager.notes().size())));
    };
    connect(&m_manager, &NoteManager::notesChanged, count, showCount);
    showCount();
    m_page.setFooter(footer);
}

void NotesSectionView::showEmptyState()
{
    if (m_manager.notes().empty())
        m_page.setEmptyState(u"note.text"_s, u"No notes yet"_s,
                             u"Click + or a clipboard item to make one."_s);
    else
        m_page.setEmptyState(u"magnifyingglass"_s, u"No matches"_s);
}

} // namespace driftbox
