#pragma once

#include "platform/KeyEventMonitor.h"
#include "platform/MonitorRegistry.h"
#include "platform/x11/connection/ServerClock.h"
#include "platform/x11/keys/PressedModifiers.h"

#include <cstdint>

#include <QtCore/QObject>

#include <xcb/xcb.h>

namespace driftbox {

class X11Connection;
class X11Keyboard;

/// Receives the session's keys as XInput2 raw events of the root window: these arrive regardless of
/// focus and grabs, need no permission, and are not taken from anyone. Held keys do not repeat, and
/// keys that the program itself synthesizes are not reported. Events are selected only while
/// monitors are installed. Main thread only.
class X11KeyEventMonitor final : public QObject, public KeyEventMonitor
{
public:
    /// Round trips. Both must outlive the monitor.
    X11KeyEventMonitor(X11Connection& connection, const X11Keyboard& keyboard);

    [[nodiscard]] std::unique_ptr<MonitorToken> addMonitor(KeyEventScope scope,
                                                           Handler handler) override;
    [[nodiscard]] bool isTrusted() const override { return m_isTrusted; }
    void requestTrust() override;

private:
    void handleEvent(const xcb_generic_event_t& event);
    void handlePress(PressedModifiers::Keyboard source, xcb_keycode_t code, EventTime time);
    void handleRelease(PressedModifiers::Keyboard source, xcb_keycode_t code, EventTime time);
    void trackSynthesized(bool isPress, PressedModifiers::Keyboard source, xcb_keycode_t code);
    void deliver(KeyEventKind kind, EventTime time) const;

    void selectRawEvents(bool selected);
    void resynchronize();
    void applyKeymap(const xcb_query_keymap_reply_t& keymap);
    void verifyHeldModifiers(EventTime time);

    X11Connection& m_connection;
    const X11Keyboard& m_keyboard;
    std::uint8_t m_opcode = 0;
    bool m_isTrusted = false;
    bool m_isSelected = false;

    PressedModifiers m_pressed;
    ServerClock m_clock;
    std::uint64_t m_eventCount = 0; ///< detects outdated replies about held keys
    MonitorRegistry<Handler> m_global;
    MonitorRegistry<Handler> m_local;
};

} // namespace driftbox
