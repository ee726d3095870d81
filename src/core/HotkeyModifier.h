#pragma once

#include <array>
#include <optional>

#include <QtCore/QString>
#include <QtCore/QStringView>

namespace driftbox {

/// The modifier key whose double tap opens the panel, in the order in which settings offer them.
enum class HotkeyModifier { control, option, command };

inline constexpr std::array allHotkeyModifiers = {HotkeyModifier::control, HotkeyModifier::option,
                                                  HotkeyModifier::command};

/// The name a modifier is stored under.
[[nodiscard]] QString rawValue(HotkeyModifier modifier);

/// None for a name that no modifier has; the comparison is exact.
[[nodiscard]] std::optional<HotkeyModifier> hotkeyModifierFromRawValue(QStringView name);

} // namespace driftbox
