#pragma once

#include "clipboard/ClipboardKeyboard.h"
#include "clipboard/ClipboardListModel.h"
#include "clipboard/ClipboardRowActions.h"
#include "clipboard/ClipboardSelection.h"
#include "clipboard/view/ClipboardRowView.h"

#include <QtCore/QTimer>
#include <QtWidgets/QWidget>

namespace driftbox {

class EmptyStateView;
class RowListView;
class SearchBar;

/// The clipboard's page in the panel: a search bar, the rows of the history and a footer. Each time
/// it is shown it begins with an empty query and the first row selected. The typing goes to the
/// search field all the time; the keys that are the list's are taken from there.
class ClipboardSectionView final : public QWidget
{
    Q_OBJECT

public:
    /// `viewModel` and `clock` must outlive the page.
    ClipboardSectionView(ClipboardViewModel& viewModel, const Clock& clock,
                         ClipboardRowActions::MakeNote onMakeNote, QWidget* parent);
    ~ClipboardSectionView() override;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildLayout();
    void connectParts();
    void startOver();
    void followScreen();
    void handleScreenChanged();
    void updateEmptyState();
    void updateBusyIndicator();
    void handleQueryEdited(const QString& query);
    [[nodiscard]] bool handleKeyPress(const QKeyEvent& event);

    ClipboardViewModel& m_viewModel;
    ClipboardListModel m_rows;
    ClipboardRowActions m_actions;
    ClipboardRowView m_rowView;
    SearchBar* m_searchBar;
    RowListView* m_list;
    EmptyStateView* m_emptyState;
    ClipboardSelection m_selection; ///< hears of changes of the rows after the list
    ClipboardKeyboard m_keyboard;
    QTimer m_busyTimer;
    bool m_selectionHasChanged = false; ///< since the last key press
    bool m_rowIsAnnounced = false; ///< assistive technology takes a row for what the user is at
};

} // namespace driftbox
