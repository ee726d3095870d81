#include "settings/view/SettingsWindowController.h"

#include "panel/ScreenGeometry.h"

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
    if (!std::exchange(m_isPlaced, true))
        centre();
    if (!m_window->surface().isVisible())
        m_window->rootView().focusSidebar();
    m_window->surface().present(FloatingSurface::Keyboard::take);
}

void SettingsWindowController::centre()
{
    const auto screens = m_screens.screens();
    if (screens.empty())
        return;
    const QPointF mouse = m_screens.mouseLocation();
    const Screen* screen = ScreenGeometry::screenContaining(mouse, screens);
    const QRectF room = (screen ? *screen : screens.front()).visibleFrame;
    const QSizeF size = SettingsWindow::initialSize().boundedTo(room.size());
    m_window->surface().setFrame(QRectF(ScreenGeometry::centredOrigin(size, mouse, screens), size));
}

} // namespace driftbox
