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

/// A page of the panel with a list: a search bar, the rows or an empty state, and a footer. Each
/// time it is shown, it starts with an empty query and the first row selected. The search field
/// always has the focus; the list's keys are intercepted there.
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

    /// Returns whether the list has handled the key press; all others go to the search field.
    using KeyPressHandler = std::function<bool(const KeyPress& press, int rowsPerPage)>;

    ListPage(const Content& content, QWidget* parent);

    /// Without a handler all key presses go to the search field.
    void setKeyPressHandler(KeyPressHandler handler) { m_handleKeyPress = std::move(handler); }

    /// Takes ownership of the footer. Must be called at most once.
    void setFooter(QWidget* footer);

    [[nodiscard]] SearchBar& searchBar() const { return *m_searchBar; }
    [[nodiscard]] RowListView& list() const { return *m_list; }
    [[nodiscard]] RowSelection& selection() { return m_selection; }

    /// The text shown while there are no rows.
    void setEmptyState(const QString& systemImage, const QString& title,
                       const QString& description = {});

Q_SIGNALS:
    /// The user has changed the query, or it is reset because the page is shown.
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
    RowSelection m_selection;           ///< connected to the model after the list
    bool m_selectionHasChanged = false; ///< since the last key press
    bool m_isRowAnnounced = false; ///< assistive technology has been told that a row is focused
};

} // namespace driftbox
