#pragma once

#include "platform/KeyEventMonitor.h"

#include <cstdint>
#include <functional>
#include <set>
#include <utility>

namespace driftbox {

/// Tracks which modifier keys are held, on which keyboard. Independent of toolkit and display: keys
/// are numbers.
class PressedModifiers
{
public:
    using Keyboard = std::uint16_t;
    using Keycode = std::uint8_t;
    /// The flags that a key sets. Called every time, so that remapped keys take effect at once.
    using FlagsOf = std::function<ModifierFlags(Keycode)>;

    explicit PressedModifiers(FlagsOf flagsOf);

    [[nodiscard]] ModifierFlags flags() const;
    [[nodiscard]] bool isEmpty() const { return m_keys.empty(); }

    /// Returns whether the key was up; false means that its release event was missed.
    bool press(Keyboard keyboard, Keycode code);
    void release(Keyboard keyboard, Keycode code);

    /// Synchronizes with the actual state. Newly found keys belong to no particular keyboard: a
    /// release on any keyboard releases them.
    void resynchronize(const std::function<bool(Keycode)>& isDown,
                       const std::function<bool(Keycode)>& isModifier);

private:
    static constexpr Keyboard anyKeyboard = 0;

    FlagsOf m_flagsOf;
    std::set<std::pair<Keyboard, Keycode>> m_keys;
};

} // namespace driftbox
