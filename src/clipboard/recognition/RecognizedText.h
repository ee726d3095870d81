#pragma once

#include <QtCore/QString>

namespace driftbox {

/// Whether `character` belongs to writing without spaces: Han, kana and their punctuation.
[[nodiscard]] bool isUnspaced(QChar character);

/// Whether most letters and digits of `text`, and at least one, are not East Asian.
[[nodiscard]] bool isAlphabetic(const QString& text);

/// Whether `name` is one of Tesseract's names for Chinese, Japanese or Korean.
[[nodiscard]] bool isEastAsian(const QString& name);

/// Cleans up a recognized line: removes spaces at its ends and between unspaced characters, and
/// corrects the comma and the full stop that follow such characters.
[[nodiscard]] QString tidied(const QString& text);

} // namespace driftbox
