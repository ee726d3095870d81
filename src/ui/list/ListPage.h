#pragma once

#include "core/RowSelection.h"
#include "platform/KeyPress.h"
#include "ui/controls/SearchField.h"

#include <functional>

#include <QtWidgets/QWidget>

namespace driftbox {

class EmptyStateView;
class RowDelegate;
class RowListView;
class SearchBar;

/// A page of the panel that lists rows: a search bar, the rows or what is said in their place, and
/// a footer. Each time it is shown it begins with an empty query and the first row selected. The
/// typing goes to the search field all the time; the keys that are the list's are taken from there.
class ListPage final : public QWidget
{
    Q_OBJECT

public:
    struct Content
    {
        QString listName; ///< for assistive technology
        QString searchPlaceholder;
        TextExchange exchange;
        QAbstractItemModel& rows; ///< must outlive the page, as must the delegate
        RowDelegate& delegate;
    };

    /// Whether the key press is the list's, and done; all others are the search field's.
    using KeyPressHandler = std::function<bool(const KeyPress& press, int rowsPerPage)>;

    ListPage(const Content& content, QWidget* parent);

    /// Without a handler all key presses are the search field's.
    void setKeyPressHandler(KeyPressHandler handler) { m_handleKeyPress = std::move(handler); }

    /// To be called once; the page then owns the footer.
    void setFooter(QWidget* footer);

    [[nodiscard]] SearchBar& searchBar() const { return *m_searchBar; }
    [[nodiscard]] RowListView& list() const { return *m_list; }
    [[nodiscard]] RowSelection& selection() { return m_selection; }

    /// What is said while there is no row.
    void setEmptyState(const QString& systemImage, const QString& title,
                       const QString& description = {});

Q_SIGNALS:
    /// The user has changed the query, or it begins anew.
    void queryEdited(const QString& query);

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void updateListVisibility();
    void handleQueryEdited(const QString& query);
    [[nodiscard]] bool filterKeyPress(const QKeyEvent& event);

    QAbstractItemModel& m_rows;
    KeyPressHandler m_handleKeyPress;
    SearchBar* m_searchBar;
    RowListView* m_list;
    EmptyStateView* m_emptyState;
    RowSelection m_selection;           ///< hears of changes of the rows after the list
    bool m_selectionHasChanged = false; ///< since the last key press
    bool m_rowIsAnnounced = false; ///< assistive technology takes a row for what the user is at
};

} // namespace driftbox
