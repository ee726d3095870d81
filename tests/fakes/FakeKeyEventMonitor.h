#pragma once

#include "platform/KeyEventMonitor.h"
#include "platform/MonitorRegistry.h"

#include <functional>

namespace driftbox {

/// A key event monitor whose events are sent by the test.
class FakeKeyEventMonitor final : public KeyEventMonitor
{
public:
    [[nodiscard]] std::unique_ptr<MonitorToken> addMonitor(KeyEventScope scope,
                                                           Handler handler) override
    {
        return registry(scope).add(std::move(handler));
    }
    [[nodiscard]] bool isTrusted() const override { return trusted; }
    void requestTrust() override
    {
        ++trustRequests;
        if (onTrustRequest)
            onTrustRequest();
    }

    void changeFlags(ModifierFlags flags, EventTime time,
                     KeyEventScope scope = KeyEventScope::global)
    {
        m_flags = flags;
        registry(scope).notify(KeyEvent{KeyEventKind::flagsChanged, flags, time});
    }
    void pressKey(EventTime time, KeyEventScope scope = KeyEventScope::global)
    {
        registry(scope).notify(KeyEvent{KeyEventKind::keyDown, m_flags, time});
    }

    [[nodiscard]] std::size_t monitorCount(KeyEventScope scope) { return registry(scope).count(); }

    bool trusted = true;
    int trustRequests = 0;
    std::function<void()> onTrustRequest;

private:
    [[nodiscard]] MonitorRegistry<Handler>& registry(KeyEventScope scope)
    {
        return scope == KeyEventScope::global ? m_global : m_local;
    }

    MonitorRegistry<Handler> m_global;
    MonitorRegistry<Handler> m_local;
    ModifierFlags m_flags = 0;
};

} // namespace driftbox
