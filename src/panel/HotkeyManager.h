#pragma once

#include "panel/DoubleTapDetector.h"
#include "platform/KeyEventMonitor.h"

#include <functional>
#include <memory>
#include <utility>

namespace driftbox {

class AppSettings;
class UserDefaults;

/// Invokes a callback when the modifier key chosen in the settings is double-tapped anywhere in the
/// session. The modifier and the threshold are read from the settings at every event; whether the
/// hotkey is enabled, only by `start`. Main thread only.
class HotkeyManager
{
public:
    /// Does not start monitoring. Both arguments must outlive the manager.
    HotkeyManager(const AppSettings& settings, KeyEventMonitor& keyboard);

    /// Starts monitoring if the settings enable it. Calling it again has no effect.
    void start();

    /// Stops monitoring. The state of the double tap is kept.
    void uninstall();

    /// Applies changed settings: discards the state of the double tap and starts again.
    void restart();

    /// Whether key events of other applications can be received.
    [[nodiscard]] bool isTrusted() const { return m_keyboard.isTrusted(); }

    /// Sets the callback of a double tap; an empty function disables it.
    void setOnTrigger(std::function<void()> onTrigger) { m_onTrigger = std::move(onTrigger); }

    /// Asks the desktop for permission to receive other applications' key events, only once per
    /// user, whatever the answer is.
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
