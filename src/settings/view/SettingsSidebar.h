#pragma once

#include "settings/SettingsSectionsModel.h"
#include "ui/controls/SearchField.h"

#include <QtWidgets/QWidget>

class QListView;

namespace driftbox {

class SettingsNavigation;

/// The left column of the settings: a search field and the pages that match it.
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
    void takeSelection();

    SettingsNavigation& m_navigation;
    SettingsSectionsModel m_model;
    QWidget* m_search;
    QListView* m_list;
    bool m_isShowingSelection = false;
};

} // namespace driftbox
