#pragma once

#include "platform/PasteKeystroke.h"
#include "platform/Workspace.h"
#include "platform/selection/PasteShortcuts.h"
#include "platform/x11/keys/X11KeySynthesizer.h"

#include <cstdint>

#include <QtCore/QDeadlineTimer>
#include <QtCore/QObject>

namespace driftbox {

class PrimarySelection;
class X11Connection;
class X11Keyboard;

/// Types the paste shortcut through the XTEST extension. Its events go to whichever window has the
/// focus, so it waits until that is the target's, without blocking. Main thread only.
class X11PasteKeystroke final : public QObject, public PasteKeystroke
{
public:
    /// All references must outlive the keystroke.
    X11PasteKeystroke(X11Connection& connection, const X11Keyboard& keyboard,
                      PrimarySelection& primarySelection);

    void send(std::shared_ptr<RunningApplication> target) override;

private:
    void typeOnceFocused(std::uint64_t generation);
    void proceed(RunningApplication::Focus focus);
    void type();
    void giveUp(const char* reason);

    X11KeySynthesizer m_synthesizer;
    PrimarySelection& m_primarySelection;

    std::shared_ptr<RunningApplication> m_target; ///< null when no keystroke is pending
    PasteShortcut m_shortcut = PasteShortcut::controlV;
    QDeadlineTimer m_deadline;
    std::uint64_t m_generation = 0;
};

} // namespace driftbox
