#include "ui/list/ListPage.h"

#include "ui/controls/Divider.h"
#include "ui/controls/EmptyStateView.h"
#include "ui/controls/SearchBar.h"
#include "ui/list/RowListView.h"

#include <utility>

#include <QtGui/QAccessible>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QBoxLayout>

namespace driftbox {

ListPage::ListPage(const Content& content, QWidget* parent)
    : QWidget(parent)
    , m_rows(content.rows)
    , m_searchBar(new SearchBar(content.searchPlaceholder, content.exchange, this))
    , m_list(new RowListView(content.rows, content.delegate, this))
    , m_emptyState(new EmptyStateView(this))
    , m_selection(content.rows)
{
    m_list->setAccessibleName(content.listName);
    setFocusProxy(m_searchBar);
    m_searchBar->field().installEventFilter(this);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(m_searchBar);
    column->addWidget(new Divider(Qt::Horizontal, this));
    column->addWidget(m_list, 1);
    column->addWidget(m_emptyState, 1);

    connect(m_searchBar, &SearchBar::queryEdited, this, &ListPage::handleQueryEdited);
    connect(&m_selection, &RowSelection::changed, this, [this] {
        m_list->setSelectedRow(m_selection.row());
        m_selectionHasChanged = true;
    });
    for (const auto change : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(&m_rows, change, this, &ListPage::updateListVisibility);
    connect(&m_rows, &QAbstractItemModel::modelReset, this, &ListPage::updateListVisibility);
    m_list->setSelectedRow(m_selection.row());
    updateListVisibility();
}

void ListPage::setFooter(QWidget* footer)
{
    layout()->addWidget(new Divider(Qt::Horizontal, this));
    layout()->addWidget(footer);
}

void ListPage::setEmptyState(const QString& systemImage, const QString& title,
                             const QString& description)
{
    m_emptyState->setContent(systemImage, title, description);
}

void ListPage::updateListVisibility()
{
    const bool isEmpty = m_rows.rowCount() == 0;
    m_list->setHidden(isEmpty);
    m_emptyState->setVisible(isEmpty);
}

void ListPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (event->spontaneous())
        return; // the window manager has restored the window
    Q_EMIT queryEdited({});
    m_selection.selectFirst();
    m_list->scrollToTop();
    m_isRowAnnounced = false;
    setFocus(Qt::ActiveWindowFocusReason);
}

void ListPage::handleQueryEdited(const QString& query)
{
    Q_EMIT queryEdited(query);
    if (!std::exchange(m_isRowAnnounced, false))
        return;
    QAccessibleEvent fieldFocused(&m_searchBar->field(), QAccessible::Focus);
    QAccessible::updateAccessibility(&fieldFocused);
}

bool ListPage::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && filterKeyPress(*static_cast<QKeyEvent*>(event)))
        return true;
    return QWidget::eventFilter(watched, event);
}

bool ListPage::filterKeyPress(const QKeyEvent& event)
{
    if (!m_handleKeyPress)
        return false;
    m_selectionHasChanged = false;
    const bool isHandled = m_handleKeyPress(
        {static_cast<Qt::Key>(event.key()), event.modifiers(), event.isAutoRepeat()},
        m_list->rowsPerPage());
    if (m_selectionHasChanged) {
        m_list->announceSelectedRow();
        m_isRowAnnounced = true;
    }
    return isHandled;
}

} // namespace driftbox
