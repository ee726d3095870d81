#pragma once

#include "settings/view/SettingsWindow.h"

#include <memory>

namespace driftbox {

class Screens;

/// Owns the one settings window for the program's life: it opens on the page and at the place where
/// it was left. Main thread only.
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
    void centre();

    std::unique_ptr<SettingsWindow> m_window;
    const Screens& m_screens;
    bool m_isPlaced = false;
};

} // namespace driftbox
