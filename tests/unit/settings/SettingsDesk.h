#pragma once

#include "settings/SettingsServices.h"
#include "unit/clipboard/ClipboardHistory.h"

namespace driftbox {

/// The settings with a history beside them; counts what is asked of the rest of the program.
struct SettingsDesk
{
    ClipboardHistory history;
    AppSettings& settings = history.settings;
    FakeUserDefaults& defaults = history.defaults;
    bool isTrusted = true;
    int trustQuestions = 0;
    int trustRequests = 0;
    int settingsOpened = 0;
    int notesClosed = 0;
    int feedbacks = 0;

    SettingsServices services{
        .settings = settings,
        .clipboard = history.viewModel,
        .isAccessibilityTrusted =
            [this] {
                ++trustQuestions;
                return isTrusted;
            },
        .requestAccessibilityTrust = [this] { ++trustRequests; },
        .openAccessibilitySettings = [this] { ++settingsOpened; },
        .closeAllNotes = [this] { ++notesClosed; },
        .sendFeedback = [this] { ++feedbacks; },
    };
};

} // namespace driftbox
