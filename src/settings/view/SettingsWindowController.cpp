#include "settings/view/SettingsWindowController.h"

#include "platform/ScreenGeometry.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace driftbox {

SettingsWindowController::SettingsWindowController(std::unique_ptr<SettingsWindow> window,
                                                   const Screens& screens)
    : m_window(std::move(window))
    , m_screens(screens)
{
}

void SettingsWindowController::showWindow()
{
    place();
    if (!m_window->surface().isVisible())
        m_window->rootView().focusSidebar();
    m_window->surface().present(FloatingSurface::Keyboard::take);
}

void SettingsWindowController::place()
{
    const auto screens = m_screens.screens();
    std::vector<QRectF> rooms;
    std::ranges::transform(screens, std::back_inserter(rooms), &Screen::visibleFrame);
    if (screens.empty() || rooms == m_rooms)
        return;
    const bool isFirst = std::exchange(m_rooms, std::move(rooms)).empty();
    if (isFirst)
        center(screens);
    else
        fit(screens);
}

void SettingsWindowController::center(const std::vector<Screen>& screens)
{
    const QPointF mouse = m_screens.mouseLocation();
    const Screen* screen = ScreenGeometry::screenContaining(mouse, screens);
    const QRectF room = (screen ? *screen : screens.front()).visibleFrame;
    const QSizeF size = SettingsWindow::initialSize().boundedTo(room.size());
    m_window->surface().setFrame(
        QRectF(ScreenGeometry::centeredOrigin(size, mouse, screens), size));
}

void SettingsWindowController::fit(const std::vector<Screen>& screens)
{
    QRectF frame = m_window->surface().frame();
    const auto holdsAll = [&frame](const QRectF& room) { return room.contains(frame); };
    if (std::ranges::any_of(m_rooms, holdsAll))
        return;
    const Screen* screen = ScreenGeometry::screenContaining(frame.center(), screens);
    const QRectF room = (screen ? *screen : screens.front()).visibleFrame;
    frame.setSize(frame.size().boundedTo(room.size()));
    frame.moveLeft(std::clamp(frame.left(), room.left(), room.right() - frame.width()));
    frame.moveTop(std::clamp(frame.top(), room.top(), room.bottom() - frame.height()));
    m_window->surface().setFrame(frame);
}

} // namespace driftbox
