#pragma once

#include "platform/desktop/ThreadPoolTaskRunner.h"
#include "platform/wayland/clipboard/ClipboardThread.h"
#include "platform/wayland/clipboard/DataControlClipboard.h"
#include "platform/wayland/clipboard/WaylandPasteboard.h"

#include <memory>

namespace driftbox {

/// The program as far as its pasteboard goes, with a short deadline for other programs.
struct PasteboardSession
{
    static constexpr std::chrono::milliseconds deadline{300};

    ThreadPoolTaskRunner runner;
    std::unique_ptr<ClipboardThread> thread = ClipboardThread::start(deadline);
    WaylandPasteboard pasteboard{*thread, runner};
};

} // namespace driftbox
