#pragma once

#include "platform/desktop/ThreadPoolTaskRunner.h"
#include "platform/wayland/clipboard/ClipboardThread.h"
#include "platform/wayland/clipboard/DataControlClipboard.h"
#include "platform/wayland/clipboard/WaylandPasteboard.h"

#include <memory>

namespace driftbox {

/// The program as far as its pasteboard goes.
struct PasteboardSession
{
    /// Long enough for any machine, however busy it is.
    static constexpr std::chrono::milliseconds longDeadline{60'000};
    /// For owners that miss it on purpose.
    static constexpr std::chrono::milliseconds shortDeadline{1'000};

    /// `deadline` is what other programs have for each format.
    explicit PasteboardSession(std::chrono::milliseconds deadline = longDeadline)
        : thread(ClipboardThread::start(deadline))
    {
    }

    ThreadPoolTaskRunner runner;
    std::unique_ptr<ClipboardThread> thread;
    WaylandPasteboard pasteboard{*thread, runner};
};

} // namespace driftbox
