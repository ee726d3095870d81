#pragma once

#include <memory>

#include <QtCore/QtGlobal>

namespace driftbox {

class RunningApplication;

/// Sends applications the keystroke that makes them paste. Main thread only.
class PasteKeystroke
{
public:
    PasteKeystroke() = default;
    Q_DISABLE_COPY_MOVE(PasteKeystroke)
    virtual ~PasteKeystroke() = default;

    /// Sends `target` its own paste shortcut, alone: modifiers that the user still holds do not
    /// take part. Returns at once. When the target's window has not got the keyboard yet the
    /// keystroke waits for it a little while; when it never gets it, or the target ends meanwhile,
    /// nothing is sent to anybody and a log line says so.
    virtual void send(std::shared_ptr<RunningApplication> target) = 0;
};

} // namespace driftbox
