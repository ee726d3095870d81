#pragma once

#include "clipboard/ClipboardKeyboard.h"
#include "clipboard/ClipboardListModel.h"
#include "clipboard/ClipboardRowActions.h"
#include "clipboard/view/ClipboardRowView.h"
#include "ui/list/ListPage.h"

#include <QtCore/QTimer>
#include <QtWidgets/QWidget>

namespace driftbox {

/// The clipboard's page in the panel.
class ClipboardSectionView final : public QWidget
{
    Q_OBJECT

public:
    /// `viewModel` and `clock` must outlive the page.
    ClipboardSectionView(ClipboardViewModel& viewModel, const Clock& clock,
                         const TextExchange& exchange, ClipboardRowActions::MakeNote onMakeNote,
                         QWidget* parent);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void connectParts();
    void followScreen();
    void handleScreenChanged();
    void handleQueryChanged();
    void updateBusyIndicator();

    ClipboardViewModel& m_viewModel;
    ClipboardListModel m_rows;
    ClipboardRowActions m_actions;
    ClipboardRowView m_rowView;
    ListPage m_page; ///< goes before what it shows
    ClipboardKeyboard m_keyboard;
    QTimer m_busyTimer;
};

} // namespace driftbox
