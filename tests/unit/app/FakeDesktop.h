#pragma once

#include "app/Desktop.h"
#include "fakes/FakeAppearance.h"
#include "fakes/FakeCaretLookup.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeDocumentOpener.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakeFloatingSurface.h"
#include "fakes/FakeKeyEventMonitor.h"
#include "fakes/FakeLocalKeyMonitor.h"
#include "fakes/FakePasteKeystroke.h"
#include "fakes/FakePasteboard.h"
#include "fakes/FakeScreens.h"
#include "fakes/FakeSelectedText.h"
#include "fakes/FakeStandardWindows.h"
#include "fakes/FakeStatusArea.h"
#include "fakes/FakeTaskRunner.h"
#include "fakes/FakeTextRecognizer.h"
#include "fakes/FakeUserDefaults.h"
#include "fakes/FakeWorkspace.h"
#include "platform/LoginItem.h"

namespace driftbox {

/// Counts the requests.
class FakeLoginItem final : public LoginItem
{
public:
    Expected<void> registerItem() override
    {
        ++registrations;
        return outcome;
    }
    Expected<void> unregisterItem() override
    {
        ++unregistrations;
        return outcome;
    }

    Expected<void> outcome;
    int registrations = 0;
    int unregistrations = 0;
};

/// A whole desktop of fakes.
struct FakeDesktop
{
    FakeFileSystem fileSystem;
    FakeClock clock;
    FakeUserDefaults userDefaults;
    FakeTaskRunner tasks;
    FakeAppearance appearance;
    FakeLoginItem loginItem;
    FakeLocalKeyMonitor localKeys;
    FakeScreens screens;
    FakeCaretLookup caretLookup;
    FakePasteboard pasteboard;
    FakeSelectedText selectedText;
    FakeKeyEventMonitor keyboard;
    FakeWorkspace workspace;
    FakePasteKeystroke pasteKeystroke;
    FakeFloatingSurfaceFactory floatingSurfaces;
    FakeTextRecognizer textRecognizer;
    FakeTaskRunner recognitions;
    FakeStatusArea statusNotifiers;
    FakeStatusArea systemTray;
    FakeStandardWindows standardWindows;
    FakeDocumentOpener documentOpener;

    [[nodiscard]] Desktop services()
    {
        return {.fileSystem = fileSystem,
                .clock = clock,
                .userDefaults = userDefaults,
                .tasks = tasks,
                .appearance = appearance,
                .loginItem = loginItem,
                .localKeys = localKeys,
                .screens = screens,
                .caretLookup = caretLookup,
                .pasteboard = pasteboard,
                .selectedText = selectedText,
                .keyboard = keyboard,
                .workspace = workspace,
                .pasteKeystroke = pasteKeystroke,
                .floatingSurfaces = floatingSurfaces,
                .textRecognizer = textRecognizer,
                .recognitions = recognitions,
                .statusNotifiers = statusNotifiers,
                .systemTray = systemTray,
                .standardWindows = standardWindows,
                .documentOpener = documentOpener};
    }
};

} // namespace driftbox
