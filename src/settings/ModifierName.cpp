#include "settings/ModifierName.h"

using namespace Qt::StringLiterals;

namespace driftbox {

QString modifierName(HotkeyModifier modifier)
{
    switch (modifier) {
    case HotkeyModifier::control:
        return u"⌃ Control"_s;
    case HotkeyModifier::option:
        return u"⌥ Option"_s;
    case HotkeyModifier::command:
        return u"⌘ Command"_s;
    }
    Q_UNREACHABLE();
}

} // namespace driftbox
