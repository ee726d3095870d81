#pragma once

#include "platform/LocalKeyMonitor.h"
#include "platform/MonitorRegistry.h"

namespace driftbox {

/// Key presses in this program's windows, made by a test.
class FakeLocalKeyMonitor final : public LocalKeyMonitor
{
public:
    [[nodiscard]] std::unique_ptr<MonitorToken> addMonitor(Handler handler) override
    {
        return m_registry.add(std::move(handler));
    }

    /// Returns whether a monitor took the key press.
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
