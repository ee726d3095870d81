#pragma once

#include "settings/SettingsSectionsModel.h"
#include "ui/controls/SearchField.h"

#include <QtWidgets/QWidget>

class QListView;

namespace driftbox {

class SettingsNavigation;

/// The sidebar of the settings window: a search field and the list of matching pages.
class SettingsSidebar final : public QWidget
{
    Q_OBJECT

public:
    /// `navigation` must outlive the sidebar.
    SettingsSidebar(SettingsNavigation& navigation, const TextExchange& exchange, QWidget* parent);

    void focusList();
    void focusSearch();

private:
    void showSelection();
    void applySelection();

    SettingsNavigation& m_navigation;
    SettingsSectionsModel m_model;
    QWidget* m_search;
    QListView* m_list;
    bool m_isShowingSelection = false;
};

} // namespace driftbox
