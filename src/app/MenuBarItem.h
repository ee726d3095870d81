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

/// The program's item in the desktop's bar, there whenever the desktop has a place for it, and
/// following when the desktop changes from one kind of place to another. Where there is none
/// nothing is missing: starting the program again opens the panel. Main thread only.
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
    [[nodiscard]] std::optional<StatusPlace> bestPlace() const;
    void show(StatusPlace place);
    void hide();
    [[nodiscard]] QPoint menuPosition() const;

    Desktop m_desktop;
    const AppSettings& m_settings;
    std::unique_ptr<MenuBarMenu> m_menu; ///< of the icon, and outlives it
    std::unique_ptr<QSystemTrayIcon> m_icon;
    std::optional<StatusPlace> m_place; ///< where the icon is
    bool m_traySuffices = false;
    int m_wait = 0; ///< the generation of the wait for the notifiers
};

} // namespace driftbox
