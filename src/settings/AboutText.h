#pragma once

#include <QtCore/QString>

/// What the page about the program says.
namespace driftbox::AboutText {

/// An empty version or build number is replaced by that of a first release.
[[nodiscard]] QString versionLine(const QString& version, const QString& build);

} // namespace driftbox::AboutText
