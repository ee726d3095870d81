#pragma once

#include <QtCore/QString>

namespace driftbox {

/// Whether `character` is written without blanks between words: Han, kana and their punctuation.
[[nodiscard]] bool isUnspaced(QChar character);

/// Whether most letters and digits of `text`, and one at least, are of other scripts.
[[nodiscard]] bool isAlphabetic(const QString& text);

/// Whether Tesseract's language `name` is Chinese, Japanese or Korean.
[[nodiscard]] bool isEastAsian(const QString& name);

/// The line `text` as a person would type it: no blanks at its ends, none between characters that
/// are written without, and after these the comma and the full stop that go with them.
[[nodiscard]] QString tidied(const QString& text);

} // namespace driftbox
