#pragma once

#include <QtCore/QString>

namespace driftbox {

/// The first `count` user-perceived characters of `text`; all of it when it has no more. The cost
/// does not depend on how much longer the text is.
[[nodiscard]] QString firstCharacters(const QString& text, qsizetype count);

} // namespace driftbox
