#pragma once

#include <array>

#include <QtCore/QMetaType>
#include <QtCore/QString>

namespace driftbox {

/// The pages of the settings window, in the order of the sidebar.
enum class SettingsSection { general, clipboard, notes, about };

inline constexpr std::array allSettingsSections = {SettingsSection::general,
                                                   SettingsSection::clipboard,
                                                   SettingsSection::notes, SettingsSection::about};

/// The system's accent colors; each has a light and a dark variant.
enum class SystemColor { gray, blue, yellow, purple, green, orange };

/// How a page is presented in the sidebar and its header.
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
