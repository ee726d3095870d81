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

/// The content of the settings window: the sidebar, and next to it the selected page below its
/// header. Pages are created when they are first selected, and kept.
class SettingsRootView final : public QWidget
{
    Q_OBJECT

public:
    /// The references in `services` must outlive the view.
    SettingsRootView(const SettingsServices& services, const TextExchange& exchange,
                     QWidget* parent);

    [[nodiscard]] SettingsNavigation& navigation() { return m_navigation; }

    /// Gives the keyboard focus to the list of pages.
    void focusSidebar();

    /// The width of the sidebar, in points.
    [[nodiscard]] int sidebarWidth() const;
    /// Whether `position` is in the area at the top by which the window is moved.
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
    QWidget* m_detail; ///< hidden while no page is selected
    SettingsHeader* m_header;
    QWidget* m_pageArea;
    QStackedLayout* m_pages;
    std::map<SettingsSection, QWidget*> m_pageBySection;
    QWidget* m_windowButtons;
};

} // namespace driftbox
