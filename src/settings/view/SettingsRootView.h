#pragma once

#include "settings/SettingsNavigation.h"
#include "settings/SettingsServices.h"
#include "ui/controls/SearchField.h"

#include <map>

#include <QtWidgets/QWidget>

class QStackedLayout;

namespace driftbox {

class SettingsHeader;
class SettingsSidebar;
class SymbolButton;

/// What the settings window shows: the sidebar, and beside it the chosen page under its head. Pages
/// are built when they are first chosen and kept.
class SettingsRootView final : public QWidget
{
    Q_OBJECT

public:
    /// What `services` refers to must outlive the view.
    SettingsRootView(const SettingsServices& services, const TextExchange& exchange,
                     QWidget* parent);

    [[nodiscard]] SettingsNavigation& navigation() { return m_navigation; }

    /// Gives the keyboard to the list of pages.
    void focusSidebar();

    /// Where the sidebar ends.
    [[nodiscard]] int sidebarWidth() const;
    /// The area that the window is moved by, at the top.
    [[nodiscard]] bool isTitleArea(const QPoint& position) const;

Q_SIGNALS:
    void minimizeRequested();
    void closeRequested();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void buildLayout();
    void showSelection();
    [[nodiscard]] QWidget* page(SettingsSection section);
    [[nodiscard]] QWidget* makePage(SettingsSection section);

    SettingsServices m_services;
    SettingsNavigation m_navigation;
    SettingsSidebar* m_sidebar;
    QWidget* m_detail; ///< hidden while no page is chosen
    SettingsHeader* m_header;
    QWidget* m_pageArea;
    QStackedLayout* m_pages;
    std::map<SettingsSection, QWidget*> m_builtPages;
    QWidget* m_windowButtons;
};

} // namespace driftbox
