#pragma once

#include <array>
#include <optional>

#include <QtCore/QString>
#include <QtCore/QStringView>

namespace driftbox {

/// The modifier keys whose double tap can open the panel, in the order the settings list them.
enum class HotkeyModifier { control, option, command };

inline constexpr std::array allHotkeyModifiers = {HotkeyModifier::control, HotkeyModifier::option,
                                                  HotkeyModifier::command};

/// The name a modifier is stored under.
[[nodiscard]] QString rawValue(HotkeyModifier modifier);

/// Exact match; nullopt for an unknown name.
[[nodiscard]] std::optional<HotkeyModifier> hotkeyModifierFromRawValue(QStringView name);

} // namespace driftbox
