#include "platform/selection/PasteShortcuts.h"

#include <algorithm>
#include <array>

namespace driftbox {

namespace {

struct Entry
{
    QStringView windowClass;
    PasteShortcut shortcut;
};

using enum PasteShortcut;

// Applications in which Control+V does not paste; all others paste with it.
constexpr std::array exceptions = {
    Entry{u"alacritty", controlShiftV},
    Entry{u"blackbox", controlShiftV},
    Entry{u"com.mitchellh.ghostty", controlShiftV},
    Entry{u"com.raggesilver.blackbox", controlShiftV},
    Entry{u"contour", controlShiftV},
    Entry{u"cool-retro-term", controlShiftV},
    Entry{u"deepin-terminal", controlShiftV},
    Entry{u"dev.warp.warp", controlShiftV},
    Entry{u"eterm", shiftInsert},
    Entry{u"foot", controlShiftV},
    Entry{u"footclient", controlShiftV},
    Entry{u"ghostty", controlShiftV},
    Entry{u"gnome-terminal", controlShiftV},
    Entry{u"gnome-terminal-server", controlShiftV},
    Entry{u"guake", controlShiftV},
    Entry{u"hyper", controlShiftV},
    Entry{u"kgx", controlShiftV},
    Entry{u"kitty", controlShiftV},
    Entry{u"konsole", controlShiftV},
    Entry{u"lxterminal", controlShiftV},
    Entry{u"mate-terminal", controlShiftV},
    Entry{u"mlterm", shiftInsert},
    Entry{u"org.gnome.console", controlShiftV},
    Entry{u"org.gnome.ptyxis", controlShiftV},
    Entry{u"org.gnome.terminal", controlShiftV},
    Entry{u"org.kde.konsole", controlShiftV},
    Entry{u"org.kde.yakuake", controlShiftV},
    Entry{u"org.wezfurlong.wezterm", controlShiftV},
    Entry{u"ptyxis", controlShiftV},
    Entry{u"qterminal", controlShiftV},
    Entry{u"rio", controlShiftV},
    Entry{u"roxterm", controlShiftV},
    Entry{u"rxvt", shiftInsert},
    Entry{u"sakura", controlShiftV},
    Entry{u"st", shiftInsert},
    Entry{u"st-256color", shiftInsert},
    Entry{u"tabby", controlShiftV},
    Entry{u"terminator", controlShiftV},
    Entry{u"terminology", controlShiftV},
    Entry{u"termite", controlShiftV},
    Entry{u"tilda", controlShiftV},
    Entry{u"tilix", controlShiftV},
    Entry{u"urxvt", shiftInsert},
    Entry{u"uxterm", shiftInsert},
    Entry{u"wezterm", controlShiftV},
    Entry{u"xfce4-terminal", controlShiftV},
    Entry{u"xterm", shiftInsert},
    Entry{u"yakuake", controlShiftV},
    // Not a terminal, but Control+V scrolls in it.
    Entry{u"emacs", shiftInsert},
};

} // namespace

PasteShortcut pasteShortcutOf(QStringView windowClass)
{
    const auto* entry = std::ranges::find_if(exceptions, [windowClass](const Entry& candidate) {
        return candidate.windowClass.compare(windowClass, Qt::CaseInsensitive) == 0;
    });
    return entry == exceptions.end() ? controlV : entry->shortcut;
}

} // namespace driftbox
