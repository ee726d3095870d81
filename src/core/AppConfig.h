#pragma once

#include <QtCore/QString>
#include <QtCore/QUrl>

/// Where the program keeps its data, and its web addresses.
namespace driftbox::AppConfig {

namespace storage {
/// The folder "Driftbox" in the user's data folder. It need not exist. Stops the program when the
/// user has no data folder: there is no fallback.
[[nodiscard]] QString defaultRootURL();
} // namespace storage

/// The folder of the settings file; it need not exist.
[[nodiscard]] QString settingsFolder();

/// The folder of what the session starts when the user logs in; it need not exist.
[[nodiscard]] QString autostartFolder();

/// The folder of the files that the program brings along, and that of its shared modules.
[[nodiscard]] QString resourcesFolder();
[[nodiscard]] QString modulesFolder();

/// The product's feedback page, set at build time.
[[nodiscard]] QUrl feedbackURL();

/// Of this build, as the build system says.
[[nodiscard]] QString version();
[[nodiscard]] QString buildNumber();

} // namespace driftbox::AppConfig
