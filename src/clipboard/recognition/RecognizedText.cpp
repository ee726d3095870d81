#include "clipboard/recognition/RecognizedText.h"

#include <algorithm>

namespace driftbox {

namespace {

constexpr QChar wideComma(0xff0c);
constexpr QChar fullStop(0x3002);

bool isUnspacedLetter(QChar character)
{
    switch (character.script()) {
    case QChar::Script_Han:
    case QChar::Script_Hiragana:
    case QChar::Script_Katakana:
    case QChar::Script_Bopomofo:
        return true;
    default:
        return character.isSurrogate(); // halves of rare Han
    }
}

bool isEastAsianLetter(QChar character)
{
    // A lone jamo is a misread letter of another script.
    const bool isJamo = character.unicode() >= 0x3131 && character.unicode() <= 0x318e;
    return isUnspacedLetter(character) || (character.script() == QChar::Script_Hangul && !isJamo);
}

/// The character at `index`, corrected for text written without spaces.
QChar corrected(const QString& line, qsizetype index)
{
    if (line[index] == u',')
        return wideComma;
    // The full stop used in Taiwan, a small centered circle, is misread as an equals sign.
    if (line[index] == u'=' && index + 1 == line.size())
        return fullStop;
    return line[index];
}

} // namespace

bool isUnspaced(QChar character)
{
    const char16_t code = character.unicode();
    const bool isPunctuation = code >= 0x3001 && code <= 0x303f;
    const bool isKanaMark = code >= 0x3099 && code <= 0x30ff;
    const bool isWideForm = code >= 0xff01 && code <= 0xff65;
    return isUnspacedLetter(character) || isPunctuation || isKanaMark || isWideForm;
}

bool isAlphabetic(const QString& text)
{
    const auto eastern = std::ranges::count_if(text, isEastAsianLetter);
    const auto all =
        std::ranges::count_if(text, [](QChar character) { return character.isLetterOrNumber(); });
    return all > 2 * eastern;
}

bool isEastAsian(const QString& name)
{
    return name.startsWith(u"chi_") || name.startsWith(u"jpn") || name.startsWith(u"kor");
}

QString tidied(const QString& text)
{
    const QString spaced = text.simplified();
    QString result;
    for (qsizetype i = 0; i < spaced.size(); ++i) {
        const bool isAfterUnspaced = !result.isEmpty() && isUnspaced(result.back());
        if (isAfterUnspaced && spaced[i] == u' ' && isUnspaced(corrected(spaced, i + 1)))
            continue;
        result += isAfterUnspaced ? corrected(spaced, i) : spaced[i];
    }
    return result;
}

} // namespace driftbox
