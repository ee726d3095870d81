#pragma once

#include "core/PasteRequest.h"
#include "fakes/FakeCaretLookup.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeFloatingSurface.h"
#include "fakes/FakeLocalKeyMonitor.h"
#include "fakes/FakePasteKeystroke.h"
#include "fakes/FakeScreens.h"
#include "fakes/FakeWorkspace.h"
#include "panel/CursorLocator.h"
#include "panel/MagicPanelController.h"
#include "panel/PanelAnimator.h"

#include <memory>
#include <vector>

#include <QtGui/QWindow>

namespace driftbox {

/// The panel on a desktop where the user works in an editor.
struct PanelDesktop
{
    PanelDesktop() { workspace.frontmost = editor; }

    void showPanel() { controller->show(); }
    void requestPaste() { pasteRequest.post(); }
    [[nodiscard]] bool onlyTheEditorWasPastedInto() const
    {
        return keystroke.targets == std::vector<std::shared_ptr<RunningApplication>>{editor};
    }

    std::shared_ptr<FakeRunningApplication> editor =
        std::make_shared<FakeRunningApplication>(4711, QStringLiteral("org.editor"));
    FakeWorkspace workspace;
    FakePasteKeystroke keystroke;
    FakeCaretLookup caretLookup;
    FakeScreens screens;
    CursorLocator locator{caretLookup, screens};
    FakeLocalKeyMonitor keys;
    PasteRequest pasteRequest;
    FakeClock clock;
    QWindow window;
    FakeFloatingSurface panel{window, FloatingSurface::Role::panel};
    PanelAnimator animator;
    std::unique_ptr<MagicPanelController> controller = [this] {
        panel.setFrame(QRectF(0, 0, 552, 648));
        return std::make_unique<MagicPanelController>(
            animator, panel,
            MagicPanelController::Services{workspace, keystroke, locator, screens, keys,
                                           pasteRequest, clock});
    }();
};

} // namespace driftbox
