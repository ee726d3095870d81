#pragma once

#include <QtCore/QString>

namespace driftbox {

/// The first `count` user-perceived characters (grapheme clusters) of `text`, or all of it if it
/// has fewer. The cost does not depend on the length of the rest.
[[nodiscard]] QString firstCharacters(const QString& text, qsizetype count);

} // namespace driftbox
