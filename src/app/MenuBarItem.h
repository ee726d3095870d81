#pragma once

#include "app/Desktop.h"
#include "app/StatusIcon.h"

#include <memory>
#include <optional>

#include <QtCore/QObject>
#include <QtCore/QPoint>

class QSystemTrayIcon;

namespace driftbox {

class AppSettings;
class MenuBarMenu;

/// The program's item in the desktop's status area, shown whenever the desktop has one and moved
/// when the desktop switches to another kind. The item is optional: starting the program again
/// opens the panel. Main thread only.
class MenuBarItem final : public QObject
{
    Q_OBJECT

public:
    /// The services in `desktop` and `settings` must outlive the item.
    MenuBarItem(const Desktop& desktop, const AppSettings& settings, QObject* parent = nullptr);
    ~MenuBarItem() override;

    /// Starts watching for a status area once the program has finished starting up.
    void start();

private:
    void followDesktop();
    void waitForNotifiers();
    [[nodiscard]] std::optional<StatusPlace> bestPlace() const;
    void show(StatusPlace place);
    void hide();
    [[nodiscard]] QPoint menuPosition() const;

    Desktop m_desktop;
    const AppSettings& m_settings;
    std::unique_ptr<MenuBarMenu> m_menu; ///< used by the icon, which it outlives
    std::unique_ptr<QSystemTrayIcon> m_icon;
    std::optional<StatusPlace> m_place; ///< where the icon is shown
    bool m_isTrayAccepted = false;
    int m_generation = 0; ///< of the latest wait for the notifiers
};

} // namespace driftbox
