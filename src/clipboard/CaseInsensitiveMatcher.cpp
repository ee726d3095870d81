#include "clipboard/CaseInsensitiveMatcher.h"

#include <algorithm>
#include <cstring>

namespace driftbox {

namespace {

constexpr qsizetype lanes = 8;
using Lanes = char16_t __attribute__((vector_size(lanes * sizeof(char16_t))));
using Mask = decltype(Lanes() == Lanes());

Lanes load(const char16_t* text)
{
    Lanes result;
    std::memcpy(&result, text, sizeof result);
    return result;
}

bool any(const Mask& mask)
{
    std::array<std::uint64_t, sizeof(Mask) / sizeof(std::uint64_t)> words{};
    std::memcpy(words.data(), &mask, sizeof mask);
    return std::ranges::any_of(words, [](std::uint64_t word) { return word != 0; });
}

bool isTurkic(const QLocale& locale)
{
    return locale.language() == QLocale::Turkish || locale.language() == QLocale::Azerbaijani;
}

// What stands for the same letter in either case. In Turkic languages the dot of an i stays.
char16_t folded(char16_t character, bool turkic)
{
    constexpr char16_t capitalDottedI = 0x0130;
    constexpr char16_t smallDotlessI = 0x0131;
    if (turkic && character == capitalDottedI)
        return u'i';
    if (turkic && character == u'I')
        return smallDotlessI;
    return QChar(character).toCaseFolded().unicode();
}

} // namespace

CaseInsensitiveMatcher::CaseInsensitiveMatcher(const QString& needle, const QLocale& locale)
{
    const bool turkic = isTurkic(locale);
    for (const QChar character : needle) {
        const char16_t wanted = folded(character.unicode(), turkic);
        Variants variants;
        variants.fill(wanted);
        size_t count = 1;
        for (char32_t other = 0; other <= 0xffff && count < variants.size(); ++other) {
            const auto unit = static_cast<char16_t>(other);
            if (unit != wanted && folded(unit, turkic) == wanted)
                variants[count++] = unit;
        }
        m_needle.push_back(variants);
    }
}

bool CaseInsensitiveMatcher::matchesAt(const char16_t* text) const
{
    return std::ranges::all_of(m_needle, [&text](const Variants& variants) {
        const char16_t character = *text++;
        return std::ranges::find(variants, character) != variants.end();
    });
}

bool CaseInsensitiveMatcher::isIn(QStringView text) const
{
    if (m_needle.empty())
        return true;
    const auto length = static_cast<qsizetype>(m_needle.size());
    const qsizetype places = text.size() - length + 1;
    const char16_t* const start = text.utf16();
    const char16_t* const lastStart = start + length - 1;

    // A place is worth a closer look only where both the first and the last character match.
    const auto matching = [](const Lanes& characters, const Variants& variants) {
        return (characters == variants[0]) | (characters == variants[1]) |
               (characters == variants[2]) | (characters == variants[3]);
    };
    qsizetype place = 0;
    for (; place + lanes <= places; place += lanes) {
        const Mask candidates = matching(load(start + place), m_needle.front()) &
                                matching(load(lastStart + place), m_needle.back());
        if (!any(candidates))
            continue;
        for (qsizetype lane = 0; lane < lanes; ++lane) {
            if (candidates[lane] && matchesAt(start + place + lane))
                return true;
        }
    }
    for (; place < places; ++place) {
        if (matchesAt(start + place))
            return true;
    }
    return false;
}

} // namespace driftbox
