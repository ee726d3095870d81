#pragma once

#include "platform/Screens.h"
#include "settings/view/SettingsWindow.h"

#include <memory>
#include <vector>

namespace driftbox {

/// Owns the one settings window for the program's life: it opens on the page and at the place where
/// it was left, unless the screens have changed and that place is not wholly on one of them. Main
/// thread only.
class SettingsWindowController
{
public:
    /// `screens` must outlive the controller.
    SettingsWindowController(std::unique_ptr<SettingsWindow> window, const Screens& screens);

    [[nodiscard]] SettingsWindow& window() { return *m_window; }

    /// Shows the window in front of all others and gives it the keyboard; the first time in the
    /// middle of the screen.
    void showWindow();

private:
    void place();
    void center(const std::vector<Screen>& screens);
    void fit(const std::vector<Screen>& screens);

    std::unique_ptr<SettingsWindow> m_window;
    const Screens& m_screens;
    std::vector<QRectF> m_rooms; ///< the visible parts of the screens when it was last shown
};

} // namespace driftbox
