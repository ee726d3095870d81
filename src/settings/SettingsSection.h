#pragma once

#include <array>

#include <QtCore/QMetaType>
#include <QtCore/QString>

namespace driftbox {

/// A page of the settings window, in the order in which the sidebar lists them.
enum class SettingsSection { general, clipboard, notes, about };

inline constexpr std::array allSettingsSections = {SettingsSection::general,
                                                   SettingsSection::clipboard,
                                                   SettingsSection::notes, SettingsSection::about};

/// The colors of the desktop that mark things apart; each is a little different in the dark.
enum class SystemColor { gray, blue, yellow, purple, green, orange };

/// What the user sees of a page before it is open.
struct SettingsSectionLook
{
    QString title;
    QString subtitle;
    QString systemImage;
    SystemColor iconColor;
};

[[nodiscard]] SettingsSectionLook lookOf(SettingsSection section);

} // namespace driftbox

Q_DECLARE_METATYPE(driftbox::SettingsSection)
