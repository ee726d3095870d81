#pragma once

#include "platform/KeyEventMonitor.h"
#include "platform/KeyPress.h"

#include <functional>
#include <memory>

#include <QtCore/QtGlobal>

namespace driftbox {

/// Observes the key presses in this program's own windows before their widgets do, and can consume
/// them. Main thread only. Tokens must not outlive the monitor.
class LocalKeyMonitor
{
public:
    /// Returns true to consume the key press.
    using Handler = std::function<bool(const KeyPress&)>;

    LocalKeyMonitor() = default;
    Q_DISABLE_COPY_MOVE(LocalKeyMonitor)
    virtual ~LocalKeyMonitor() = default;

    [[nodiscard]] virtual std::unique_ptr<MonitorToken> addMonitor(Handler handler) = 0;
};

} // namespace driftbox
