#include "settings/SettingsSection.h"

using namespace Qt::StringLiterals;

namespace driftbox {

SettingsSectionLook lookOf(SettingsSection section)
{
    switch (section) {
    case SettingsSection::general:
        return {u"General"_s, u"Hotkey, startup, and accessibility."_s, u"gearshape"_s,
                SystemColor::gray};
    case SettingsSection::clipboard:
        return {u"Clipboard"_s, u"History capacity and clearing."_s, u"doc.on.clipboard"_s,
                SystemColor::blue};
    case SettingsSection::notes:
        return {u"Notes"_s, u"Default color and clearing."_s, u"note.text"_s, SystemColor::yellow};
    case SettingsSection::about:
        return {u"About"_s, u"About this app."_s, u"info.circle"_s, SystemColor::purple};
    }
    Q_UNREACHABLE();
}

} // namespace driftbox
