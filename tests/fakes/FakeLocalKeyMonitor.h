#pragma once

#include "platform/LocalKeyMonitor.h"
#include "platform/MonitorRegistry.h"

namespace driftbox {

/// A monitor of key presses in this program's windows, which the test sends.
class FakeLocalKeyMonitor final : public LocalKeyMonitor
{
public:
    [[nodiscard]] std::unique_ptr<MonitorToken> addMonitor(Handler handler) override
    {
        return m_registry.add(std::move(handler));
    }

    /// Returns whether a monitor handled the key press.
    bool press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
               bool isRepeated = false)
    {
        return m_registry.notify(KeyPress{key, modifiers, isRepeated});
    }

    [[nodiscard]] std::size_t monitorCount() const { return m_registry.count(); }

private:
    MonitorRegistry<Handler> m_registry;
};

} // namespace driftbox
