#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>

#include <QtCore/QtGlobal>

namespace driftbox {

enum class KeyEventKind : std::uint8_t {
    keyDown = 10,
    flagsChanged = 12,
};

/// Device-independent modifier flags, a bit set; left and right keys are not distinguished.
using ModifierFlags = std::uint64_t;
namespace ModifierFlag {
inline constexpr ModifierFlags shift = 0x20000;
inline constexpr ModifierFlags control = 0x40000;
inline constexpr ModifierFlags option = 0x80000;   ///< Alt
inline constexpr ModifierFlags command = 0x100000; ///< Super
} // namespace ModifierFlag

/// Time of an event by the display server's clock, with an arbitrary origin; does not wrap around.
using EventTime = std::chrono::milliseconds;

struct KeyEvent
{
    KeyEventKind kind;
    ModifierFlags flags; ///< the modifiers held after the event
    EventTime time;
};

enum class KeyEventScope : std::uint8_t {
    global, ///< events delivered to other applications
    local,  ///< events delivered to this application
};

/// Handle of an installed monitor; destroying it removes the monitor.
class MonitorToken
{
public:
    MonitorToken() = default;
    Q_DISABLE_COPY_MOVE(MonitorToken)
    virtual ~MonitorToken() = default;
};

/// Observes the key presses and modifier changes of the whole session without consuming them.
///
/// Main thread only. Each event reaches the monitors of exactly one scope. Tokens must not outlive
/// the monitor that returned them.
class KeyEventMonitor
{
public:
    using Handler = std::function<void(const KeyEvent&)>;

    KeyEventMonitor() = default;
    Q_DISABLE_COPY_MOVE(KeyEventMonitor)
    virtual ~KeyEventMonitor() = default;

    [[nodiscard]] virtual std::unique_ptr<MonitorToken> addMonitor(KeyEventScope scope,
                                                                   Handler handler) = 0;

    /// Whether events of other applications can be received at all. Otherwise global monitors may
    /// be installed but receive nothing.
    [[nodiscard]] virtual bool isTrusted() const = 0;

    /// Asks the desktop for permission to receive other applications' events, where permission is
    /// needed. `isTrusted` reflects the answer later.
    virtual void requestTrust() = 0;
};

} // namespace driftbox
