#pragma once

#include "app/Desktop.h"

#include <memory>

#include <QtCore/QObject>
#include <QtCore/QPoint>

class QSystemTrayIcon;

namespace driftbox {

class AppSettings;
class MenuBarMenu;

/// The program's item in the desktop's bar, there whenever the desktop has a place for it. Where
/// there is none nothing is missing: starting the program again opens the panel. Main thread only.
class MenuBarItem final : public QObject
{
    Q_OBJECT

public:
    /// What both refer to must outlive the item.
    MenuBarItem(const Desktop& desktop, const AppSettings& settings, QObject* parent = nullptr);
    ~MenuBarItem() override;

    /// Looks for a place once the program has nothing more urgent to do.
    void start();

private:
    void followDesktop();
    void waitForNotifiers();
    void show();
    void hide();
    [[nodiscard]] QPoint placeOfMenu() const;

    Desktop m_desktop;
    const AppSettings& m_settings;
    std::unique_ptr<MenuBarMenu> m_menu; ///< of the icon, and outlives it
    std::unique_ptr<QSystemTrayIcon> m_icon;
    bool m_traySuffices = false;
};

} // namespace driftbox
