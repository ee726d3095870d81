#pragma once

#include "platform/KeyEventMonitor.h"

#include <cstdint>
#include <functional>
#include <set>
#include <utility>

namespace driftbox {

/// Which modifier keys are down, on which keyboard. No toolkit and no display: the keys are
/// numbers.
class PressedModifiers
{
public:
    using Keyboard = std::uint16_t;
    using Keycode = std::uint8_t;
    /// What flags a key raises. It is asked anew each time, so that a remapped key counts at once.
    using FlagsOf = std::function<ModifierFlags(Keycode)>;

    explicit PressedModifiers(FlagsOf flagsOf);

    [[nodiscard]] ModifierFlags flags() const;
    [[nodiscard]] bool isEmpty() const { return m_keys.empty(); }

    /// Returns whether the key was up; false means that its release was missed.
    bool press(Keyboard keyboard, Keycode code);
    void release(Keyboard keyboard, Keycode code);

    /// Takes over what is really down. Keys that were not known to be down belong to no keyboard
    /// in particular: they are released by any.
    void resynchronize(const std::function<bool(Keycode)>& isDown,
                       const std::function<bool(Keycode)>& isModifier);

private:
    static constexpr Keyboard anyKeyboard = 0;

    FlagsOf m_flagsOf;
    std::set<std::pair<Keyboard, Keycode>> m_keys;
};

} // namespace driftbox
