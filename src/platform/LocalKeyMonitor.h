#pragma once

#include "platform/KeyEventMonitor.h"

#include <functional>
#include <memory>

#include <QtCore/Qt>

namespace driftbox {

/// A key press that is about to reach a window of this program.
struct LocalKeyPress
{
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    bool isRepeated = false; ///< the key has been held down since an earlier press
};

/// Sees the key presses of this program's own windows before their widgets do, and can take them.
/// Main thread only. Tokens must not outlive the monitor.
class LocalKeyMonitor
{
public:
    /// Returns true to take the key press: it goes no further.
    using Handler = std::function<bool(const LocalKeyPress&)>;

    LocalKeyMonitor() = default;
    LocalKeyMonitor(const LocalKeyMonitor&) = delete;
    LocalKeyMonitor& operator=(const LocalKeyMonitor&) = delete;
    virtual ~LocalKeyMonitor() = default;

    [[nodiscard]] virtual std::unique_ptr<MonitorToken> addMonitor(Handler handler) = 0;
};

} // namespace driftbox
