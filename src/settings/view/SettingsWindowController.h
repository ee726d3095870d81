#pragma once

#include "platform/Screens.h"
#include "settings/view/SettingsWindow.h"

#include <memory>
#include <vector>

namespace driftbox {

/// Owns the only settings window for the program's lifetime. It reopens on the page and at the
/// position where it was left, unless the screens have changed and that position is not entirely on
/// one of them. Main thread only.
class SettingsWindowController
{
public:
    /// `screens` must outlive the controller.
    SettingsWindowController(std::unique_ptr<SettingsWindow> window, const Screens& screens);

    [[nodiscard]] SettingsWindow& window() { return *m_window; }

    /// Shows and raises the window and gives it the keyboard focus; the first time it is centered
    /// on the screen.
    void showWindow();

private:
    void place();
    void center(const std::vector<Screen>& screens);
    void fit(const std::vector<Screen>& screens);

    std::unique_ptr<SettingsWindow> m_window;
    const Screens& m_screens;
    std::vector<QRectF> m_visibleFrames; ///< of the screens when the window was last shown
};

} // namespace driftbox
