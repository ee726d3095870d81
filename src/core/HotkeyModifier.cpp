#include "core/HotkeyModifier.h"

#include "core/EnumNames.h"

namespace driftbox {

namespace {
constexpr EnumNames<HotkeyModifier, 3> modifierNames{{{
    {HotkeyModifier::control, u"control"},
    {HotkeyModifier::option, u"option"},
    {HotkeyModifier::command, u"command"},
}}};
}

QString rawValue(HotkeyModifier modifier)
{
    return modifierNames.name(modifier);
}

std::optional<HotkeyModifier> hotkeyModifierFromRawValue(QStringView name)
{
    return modifierNames.value(name);
}

} // namespace driftbox
