#pragma once

#include "platform/selection/FormatTransfer.h"

#include <chrono>
#include <memory>

#include <QtCore/QThread>

namespace driftbox {

class DataControlClipboard;

/// The thread of the compositor's clipboard. Belongs to the main thread; ends with this object.
class ClipboardThread
{
public:
    /// None when no compositor can be reached, or when it offers no data control.
    [[nodiscard]] static std::unique_ptr<ClipboardThread>
    start(std::chrono::milliseconds deadline = TransferLimits::deadline);
    ~ClipboardThread();
    Q_DISABLE_COPY_MOVE(ClipboardThread)

    /// Its signals arrive queued; its operations are to be invoked on its own thread.
    [[nodiscard]] DataControlClipboard& clipboard() const { return *m_clipboard; }

private:
    ClipboardThread() = default;

    QThread m_thread;
    DataControlClipboard* m_clipboard = nullptr; ///< deleted by its thread as that ends
};

} // namespace driftbox
