#pragma once

#include <QtCore/QString>
#include <QtCore/QUrl>

/// File locations, web addresses and the version of this build.
namespace driftbox::AppConfig {

namespace storage {
/// The folder "Driftbox" in the user's data folder. It may not exist yet. Terminates the program if
/// the user has no data folder: there is no fallback.
[[nodiscard]] QString defaultRootURL();
} // namespace storage

/// The folder of the settings file; it may not exist yet.
[[nodiscard]] QString settingsFolder();

/// The folder of the XDG autostart entries; it may not exist yet.
[[nodiscard]] QString autostartFolder();

/// The folders of the bundled resource files and of the shared modules.
[[nodiscard]] QString resourcesFolder();
[[nodiscard]] QString modulesFolder();

/// The product's feedback page, set at build time.
[[nodiscard]] QUrl feedbackURL();

/// The version and build number, set at build time.
[[nodiscard]] QString version();
[[nodiscard]] QString buildNumber();

} // namespace driftbox::AppConfig
