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
    std::vector<QRectF> visibleFrames;
    std::ranges::transform(screens, std::back_inserter(visibleFrames), &Screen::visibleFrame);
    if (screens.empty() || visibleFrames == m_visibleFrames)
        return;
    const bool isFirst = std::exchange(m_visibleFrames, std::move(visibleFrames)).empty();
    if (isFirst)
        center(screens);
    else
        fit(screens);
}

void SettingsWindowController::center(const std::vector<Screen>& screens)
{
    const QPointF mouse = m_screens.mouseLocation();
    const Screen* screen = ScreenGeometry::screenContaining(mouse, screens);
    const QRectF available = (screen ? *screen : screens.front()).visibleFrame;
    const QSizeF size = SettingsWindow::initialSize().boundedTo(available.size());
    m_window->surface().setFrame(
        QRectF(ScreenGeometry::centeredOrigin(size, mouse, screens), size));
}

void SettingsWindowController::fit(const std::vector<Screen>& screens)
{
    QRectF frame = m_window->surface().frame();
    const auto containsFrame = [&frame](const QRectF& visibleFrame) {
        return visibleFrame.contains(frame);
    };
    if (std::ranges::any_of(m_visibleFrames, containsFrame))
        return;
    const Screen* screen = ScreenGeometry::screenContaining(frame.center(), screens);
    const QRectF available = (screen ? *screen : screens.front()).visibleFrame;
    frame.setSize(frame.size().boundedTo(available.size()));
    frame.moveLeft(std::clamp(frame.left(), available.left(), available.right() - frame.width()));
    frame.moveTop(std::clamp(frame.top(), available.top(), available.bottom() - frame.height()));
    m_window->surface().setFrame(frame);
}

} // namespace driftbox
