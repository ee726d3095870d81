#include "platform/x11/keys/PressedModifiers.h"

#include <algorithm>
#include <limits>

namespace driftbox {

PressedModifiers::PressedModifiers(FlagsOf flagsOf)
    : m_flagsOf(std::move(flagsOf))
{
}

ModifierFlags PressedModifiers::flags() const
{
    ModifierFlags all = 0;
    for (const auto& [keyboard, code] : m_keys)
        all |= m_flagsOf(code);
    return all;
}

bool PressedModifiers::press(Keyboard keyboard, Keycode code)
{
    return m_keys.emplace(keyboard, code).second;
}

void PressedModifiers::release(Keyboard keyboard, Keycode code)
{
    m_keys.erase({keyboard, code});
    m_keys.erase({anyKeyboard, code});
}

void PressedModifiers::resynchronize(const std::function<bool(Keycode)>& isDown,
                                     const std::function<bool(Keycode)>& isModifier)
{
    std::erase_if(m_keys, [&](const auto& key) { return !isDown(key.second); });
    for (int code = 0; code <= std::numeric_limits<Keycode>::max(); ++code) {
        const auto keycode = static_cast<Keycode>(code);
        const bool isKnown = std::ranges::any_of(
            m_keys, [keycode](const auto& key) { return key.second == keycode; });
        if (!isKnown && isDown(keycode) && isModifier(keycode))
            m_keys.emplace(anyKeyboard, keycode);
    }
}

} // namespace driftbox
