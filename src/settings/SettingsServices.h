#pragma once

#include <functional>

namespace driftbox {

class AppSettings;
class ClipboardViewModel;

/// What the settings pages act on. The settings and the history outlive the pages; the actions are
/// all there and may be called at any time.
struct SettingsServices
{
    AppSettings& settings;
    ClipboardViewModel& clipboard;
    std::function<bool()> isAccessibilityTrusted;
    std::function<void()> requestAccessibilityTrust; ///< has the desktop ask the user
    std::function<void()> openAccessibilitySettings;
    std::function<void()> restartHotkey;
    std::function<void()> applyLaunchAtLogin;
    std::function<void()> closeAllNotes;
    std::function<void()> sendFeedback;
};

} // namespace driftbox
