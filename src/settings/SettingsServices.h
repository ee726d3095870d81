#pragma once

#include <functional>

namespace driftbox {

class AppSettings;
class ClipboardViewModel;

/// The services used by the settings pages. The references must outlive the pages; all actions must
/// be set and may be called at any time.
struct SettingsServices
{
    AppSettings& settings;
    ClipboardViewModel& clipboard;
    std::function<bool()> isAccessibilityTrusted;
    std::function<void()> requestAccessibilityTrust; ///< shows the desktop's permission prompt
    std::function<void()> openAccessibilitySettings;
    std::function<void()> closeAllNotes;
    std::function<void()> sendFeedback;
};

} // namespace driftbox
