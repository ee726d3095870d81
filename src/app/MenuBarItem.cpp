#include "app/MenuBarItem.h"

#include "app/MenuBarMenu.h"
#include "app/MenuBarSymbol.h"
#include "platform/Clock.h"
#include "platform/StatusArea.h"

#include <chrono>

#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtWidgets/QSystemTrayIcon>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace driftbox {

namespace {

constexpr auto menuBarStartupDelay = 500ms;

// While the session or its panel starts up, the tray may appear before the preferred notifiers.
constexpr auto notifiersTimeout = 3s;

} // namespace

MenuBarItem::MenuBarItem(const Desktop& desktop, const AppSettings& settings, QObject* parent)
    : QObject(parent)
    , m_desktop(desktop)
    , m_settings(settings)
{
    connect(&desktop.statusNotifiers, &StatusArea::availableChanged, this, [this](bool available) {
        if (!available)
            waitForNotifiers();
        followDesktop();
    });
    connect(&desktop.systemTray, &StatusArea::availableChanged, this, &MenuBarItem::followDesktop);
}

MenuBarItem::~MenuBarItem() = default;

void MenuBarItem::start()
{
    m_desktop.clock.after(menuBarStartupDelay, this, [this] {
        m_desktop.statusNotifiers.watch();
        m_desktop.systemTray.watch();
        waitForNotifiers();
    });
}

void MenuBarItem::waitForNotifiers()
{
    m_isTrayAccepted = false;
    m_desktop.clock.after(notifiersTimeout, this, [this, generation = ++m_generation] {
        if (generation != m_generation)
            return;
        m_isTrayAccepted = true;
        followDesktop();
    });
}

void MenuBarItem::followDesktop()
{
    const auto place = bestPlace();
    if (place == m_place)
        return;
    hide();
    if (place)
        show(*place);
}

std::optional<StatusPlace> MenuBarItem::bestPlace() const
{
    if (m_desktop.statusNotifiers.isAvailable())
        return StatusPlace::notifiers;
    if (m_isTrayAccepted && m_desktop.systemTray.isAvailable())
        return StatusPlace::tray;
    return std::nullopt;
}

void MenuBarItem::show(StatusPlace place)
{
    m_place = place;
    m_menu = std::make_unique<MenuBarMenu>(m_settings);
    m_icon = makeStatusIcon(place);
    m_icon->setIcon(menuBarSymbol());
    m_icon->setToolTip(u"Drift Box"_s);
    m_icon->setContextMenu(m_menu.get());
    connect(m_icon.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick)
                    m_menu->popup(menuPosition());
            });
    m_icon->show();
}

// The menu opens next to the icon, so that releasing the button does not trigger an entry. If the
// desktop does not report the icon's geometry, the pointer is on the icon.
QPoint MenuBarItem::menuPosition() const
{
    const QRect icon = m_icon->geometry();
    if (icon.isEmpty())
        return QCursor::pos();
    const QScreen* screen = QGuiApplication::screenAt(icon.center());
    const int height = m_menu->sizeHint().height();
    const bool fitsBelow = !screen || icon.bottom() + height < screen->geometry().bottom();
    return fitsBelow ? icon.bottomLeft() + QPoint(0, 1) : icon.topLeft() - QPoint(0, height);
}

void MenuBarItem::hide()
{
    m_place.reset();
    m_icon.reset();
    m_menu.reset();
}

} // namespace driftbox
