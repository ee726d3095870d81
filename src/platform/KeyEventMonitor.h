#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>

namespace driftbox {

enum class KeyEventKind : std::uint8_t {
    keyDown = 10,
    flagsChanged = 12,
};

/// Device-independent modifier flags, a set of bits; left and right keys are not told apart.
using ModifierFlags = std::uint64_t;
namespace ModifierFlag {
inline constexpr ModifierFlags shift = 0x20000;
inline constexpr ModifierFlags control = 0x40000;
inline constexpr ModifierFlags option = 0x80000;   ///< Alt
inline constexpr ModifierFlags command = 0x100000; ///< Super
} // namespace ModifierFlag

/// When an event happened, by the display server's clock, from an arbitrary origin; never wraps.
using EventTime = std::chrono::milliseconds;

struct KeyEvent
{
    KeyEventKind kind;
    ModifierFlags flags; ///< the modifiers that are down after the event
    EventTime time;
};

enum class KeyEventScope : std::uint8_t {
    global, ///< events that go to other applications
    local,  ///< events that go to this one
};

/// An installed monitor; it is removed when the token is destroyed.
class MonitorToken
{
public:
    MonitorToken() = default;
    MonitorToken(const MonitorToken&) = delete;
    MonitorToken& operator=(const MonitorToken&) = delete;
    virtual ~MonitorToken() = default;
};

/// Sees the key presses and modifier changes of the whole session without taking any of them.
///
/// Main thread only. Each event reaches the monitors of exactly one scope. Tokens must not outlive
/// the monitor that handed them out.
class KeyEventMonitor
{
public:
    using Handler = std::function<void(const KeyEvent&)>;

    KeyEventMonitor() = default;
    KeyEventMonitor(const KeyEventMonitor&) = delete;
    KeyEventMonitor& operator=(const KeyEventMonitor&) = delete;
    virtual ~KeyEventMonitor() = default;

    [[nodiscard]] virtual std::unique_ptr<MonitorToken> addMonitor(KeyEventScope scope,
                                                                   Handler handler) = 0;

    /// Whether events of other applications can be had at all. Without it global monitors may be
    /// installed but receive nothing.
    [[nodiscard]] virtual bool isTrusted() const = 0;

    /// Asks the desktop to let this program see other applications' events, where there is such a
    /// question to ask. The answer shows in `isTrusted` later.
    virtual void requestTrust() = 0;
};

} // namespace driftbox
