#pragma once

#include "panel/DoubleTapDetector.h"
#include "platform/KeyEventMonitor.h"

#include <functional>
#include <memory>
#include <utility>

namespace driftbox {

class AppSettings;
class UserDefaults;

/// Calls back when the modifier key chosen in the settings is tapped twice, anywhere in the
/// session. Which modifier and how quick is looked up in the settings at every event; whether at
/// all only by `start`. Main thread only.
class HotkeyManager
{
public:
    /// Nothing is watched yet. Both arguments must outlive the manager.
    HotkeyManager(const AppSettings& settings, KeyEventMonitor& keyboard);

    /// Starts watching if the settings want it; does nothing when it watches already.
    void start();

    /// Stops watching. What was seen so far is remembered.
    void uninstall();

    /// Takes up a changed switch or modifier: forgets what was seen so far and starts anew.
    void restart();

    /// Whether the keys of other applications can be seen.
    [[nodiscard]] bool isTrusted() const { return m_keyboard.isTrusted(); }

    /// Replaces what a double tap does; an empty function does nothing.
    void setOnTrigger(std::function<void()> onTrigger) { m_onTrigger = std::move(onTrigger); }

    /// Asks the desktop to let this program see other applications' keys, once per user: never
    /// again, whatever the answer was.
    static void promptForAccessibilityIfNeeded(KeyEventMonitor& keyboard, UserDefaults& defaults);

private:
    void install();
    void handle(const KeyEvent& event);
    void handleFlagsChanged(const KeyEvent& event);

    const AppSettings& m_settings;
    KeyEventMonitor& m_keyboard;
    DoubleTapDetector m_detector;
    std::unique_ptr<MonitorToken> m_globalMonitor;
    std::unique_ptr<MonitorToken> m_localMonitor;
    ModifierFlags m_previousFlags = 0;
    std::function<void()> m_onTrigger;
};

} // namespace driftbox
