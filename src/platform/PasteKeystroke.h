#pragma once

#include <memory>

#include <QtCore/QtGlobal>

namespace driftbox {

class RunningApplication;

/// Sends applications their paste keystroke. Main thread only.
class PasteKeystroke
{
public:
    PasteKeystroke() = default;
    Q_DISABLE_COPY_MOVE(PasteKeystroke)
    virtual ~PasteKeystroke() = default;

    /// Sends `target` its own paste shortcut, unaffected by modifiers that the user still holds.
    /// Returns at once. If the target's window does not have the keyboard focus yet, the keystroke
    /// is delayed for a short time; if it never gets it, or the target terminates meanwhile,
    /// nothing is sent and this is logged.
    virtual void send(std::shared_ptr<RunningApplication> target) = 0;
};

} // namespace driftbox
