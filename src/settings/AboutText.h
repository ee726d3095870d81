#pragma once

#include <QtCore/QString>

/// Texts of the About page.
namespace driftbox::AboutText {

/// The version line. An empty version or build number is replaced by that of a first release.
[[nodiscard]] QString versionLine(const QString& version, const QString& build);

} // namespace driftbox::AboutText
