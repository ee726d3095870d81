#include "platform/desktop/AccessibilitySettings.h"

#include <algorithm>
#include <array>
#include <vector>

#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

struct SettingsProgram
{
    const char16_t* desktop; ///< as in XDG_CURRENT_DESKTOP
    const char16_t* program;
    const char16_t* page; ///< null for a program without other pages
};

constexpr std::array settingsPrograms{
    SettingsProgram{u"GNOME", u"gnome-control-center", u"universal-access"},
    SettingsProgram{u"KDE", u"systemsettings", u"kcm_access"},
    SettingsProgram{u"KDE", u"systemsettings5", u"kcm_access"},
    SettingsProgram{u"XFCE", u"xfce4-accessibility-settings", nullptr},
    SettingsProgram{u"X-Cinnamon", u"cinnamon-settings", u"accessibility"},
    SettingsProgram{u"MATE", u"mate-at-properties", nullptr},
    SettingsProgram{u"Budgie", u"budgie-control-center", u"universal-access"},
    SettingsProgram{u"Unity", u"unity-control-center", u"universal-access"},
    SettingsProgram{u"LXQt", u"lxqt-config", nullptr},
};

// The programs of the running desktop first.
std::vector<SettingsProgram> inOrderOfPreference()
{
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':');
    std::vector programs(settingsPrograms.begin(), settingsPrograms.end());
    const auto isOfRunningDesktop = [&desktops](const SettingsProgram& candidate) {
        return desktops.contains(QString::fromUtf16(candidate.desktop), Qt::CaseInsensitive);
    };
    std::stable_partition(programs.begin(), programs.end(), isOfRunningDesktop);
    return programs;
}

} // namespace

Expected<void> startAccessibilitySettings()
{
    for (const SettingsProgram& candidate : inOrderOfPreference()) {
        const QString program =
            QStandardPaths::findExecutable(QString::fromUtf16(candidate.program));
        const QStringList arguments =
            candidate.page ? QStringList{QString::fromUtf16(candidate.page)} : QStringList();
        if (!program.isEmpty() && QProcess::startDetached(program, arguments))
            return {};
    }
    return Error{u"No settings program of a desktop is installed"_s};
}

} // namespace driftbox
