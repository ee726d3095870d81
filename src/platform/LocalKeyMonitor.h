#pragma once

#include "platform/KeyEventMonitor.h"
#include "platform/KeyPress.h"

#include <functional>
#include <memory>

#include <QtCore/QtGlobal>

namespace driftbox {

/// Sees the key presses of this program's own windows before their widgets do, and can take them.
/// Main thread only. Tokens must not outlive the monitor.
class LocalKeyMonitor
{
public:
    /// Returns true to take the key press: it goes no further.
    using Handler = std::function<bool(const KeyPress&)>;

    LocalKeyMonitor() = default;
    Q_DISABLE_COPY_MOVE(LocalKeyMonitor)
    virtual ~LocalKeyMonitor() = default;

    [[nodiscard]] virtual std::unique_ptr<MonitorToken> addMonitor(Handler handler) = 0;
};

} // namespace driftbox
