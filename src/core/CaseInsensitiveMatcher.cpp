#include "core/CaseInsensitiveMatcher.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <utility>

namespace driftbox {

namespace {

using Lanes = CaseInsensitiveMatcher::Lanes;
using Mask = CaseInsensitiveMatcher::Mask;

Lanes load(const char16_t* text)
{
    Lanes result;
    std::memcpy(&result, text, sizeof result);
    return result;
}

std::array<std::uint64_t, 2> wordsOf(const Mask& mask)
{
    return std::bit_cast<std::array<std::uint64_t, 2>>(mask);
}

bool any(const Mask& mask)
{
    const auto words = wordsOf(mask);
    return (words[0] | words[1]) != 0;
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

struct Folding
{
    char16_t folded;
    char16_t character;
};

// Every character that folding changes, sorted by what it becomes.
std::vector<Folding> foldings(bool turkic)
{
    std::vector<Folding> result;
    for (char32_t unit = 0; unit <= 0xffff; ++unit) {
        const auto character = static_cast<char16_t>(unit);
        if (const char16_t other = folded(character, turkic); other != character)
            result.push_back({other, character});
    }
    std::ranges::stable_sort(result, {}, &Folding::folded);
    return result;
}

const std::vector<Folding>& foldingsFor(const QLocale& locale)
{
    static const std::vector<Folding> plain = foldings(false);
    static const std::vector<Folding> turkic = foldings(true);
    return isTurkic(locale) ? turkic : plain;
}

// The other case of a letter whose surrogate pair ends in `low`; its pair begins like this one.
char16_t otherLowSurrogate(char16_t high, char16_t low)
{
    const char32_t letter = QChar::surrogateToUcs4(high, low);
    const char32_t upper = QChar::toUpper(letter);
    const char32_t other = upper == letter ? QChar::toLower(letter) : upper;
    return QChar::highSurrogate(other) == high ? QChar::lowSurrogate(other) : low;
}

// Characters by how often they are met, in many languages; what is not here is rare.
qsizetype frequency(char16_t character)
{
    constexpr QStringView rareToFrequent = u"qzxjkvbwpyg,.fmucdlhrsniotae ";
    return rareToFrequent.indexOf(QChar(character));
}

} // namespace

CaseInsensitiveMatcher::CaseInsensitiveMatcher(const QString& needle, const QLocale& locale)
{
    const bool turkic = isTurkic(locale);
    const std::vector<Folding>& pairs = foldingsFor(locale);
    char16_t previous = 0;
    for (const QChar character : needle) {
        Variants variants;
        variants.fill(folded(character.unicode(), turkic));
        auto other = std::ranges::lower_bound(pairs, variants.front(), {}, &Folding::folded);
        for (auto place = variants.begin() + 1;
             place != variants.end() && other != pairs.end() && other->folded == variants.front();
             ++other)
            *place++ = other->character;
        if (character.isLowSurrogate() && QChar::isHighSurrogate(previous))
            variants[1] = otherLowSurrogate(previous, character.unicode());
        previous = character.unicode();
        m_needle.push_back(variants);
    }

    const auto rarer = [this](size_t a, size_t b) {
        return frequency(m_needle[a].front()) < frequency(m_needle[b].front());
    };
    for (size_t index = 1; index < m_needle.size(); ++index) {
        if (rarer(index, m_first))
            m_second = std::exchange(m_first, index);
        else if (m_second == m_first || rarer(index, m_second))
            m_second = index;
    }
    const auto hasMany = [this](size_t index) {
        return !m_needle.empty() && m_needle[index][2] != m_needle[index][0];
    };
    m_haveManyVariants = hasMany(m_first) || hasMany(m_second);
    m_isFirstRare = !m_needle.empty() && frequency(m_needle[m_first].front()) < frequency(u'u');
}

bool CaseInsensitiveMatcher::matchesAt(const char16_t* text) const
{
    return std::ranges::all_of(m_needle, [&text](const Variants& variants) {
        const char16_t character = *text++;
        return std::ranges::find(variants, character) != variants.end();
    });
}

bool CaseInsensitiveMatcher::matchesAtOneOf(const char16_t* text, const Mask& places) const
{
    constexpr int bitsPerLane = 16;
    const auto words = wordsOf(places);
    for (size_t half = 0; half < 2; ++half) {
        for (std::uint64_t word = words[half]; word != 0;) {
            const int lane = std::countr_zero(word) / bitsPerLane;
            if (matchesAt(text + half * lanes / 2 + lane))
                return true;
            word &= ~(std::uint64_t(0xffff) << (lane * bitsPerLane));
        }
    }
    return false;
}

template <size_t variantCount, bool isFirstRare>
bool CaseInsensitiveMatcher::isInSteps(const char16_t* text, qsizetype steps) const
{
    const Variants first = m_needle[m_first];
    const Variants second = m_needle[m_second];
    const auto matching = [](const char16_t* at, const Variants& variants) {
        const Lanes characters = load(at);
        Mask mask = characters == variants[0];
        for (size_t variant = 1; variant < variantCount; ++variant)
            mask |= characters == variants[variant];
        return mask;
    };
    const char16_t* const end = text + steps * lanes;
    for (const char16_t* place = text; place != end; place += lanes) {
        const Mask candidates = matching(place + m_first, first);
        // Where it is met every now and then, guessing wrong costs more than always looking twice.
        if constexpr (isFirstRare) {
            if (!any(candidates))
                continue;
        }
        const Mask both = candidates & matching(place + m_second, second);
        if (any(both) && matchesAtOneOf(place, both))
            return true;
    }
    return false;
}

bool CaseInsensitiveMatcher::isIn(QStringView text) const
{
    const qsizetype places = text.size() - static_cast<qsizetype>(m_needle.size()) + 1;
    if (m_needle.empty() || places <= 0)
        return m_needle.empty();

    const char16_t* const start = text.utf16();
    const qsizetype steps = places / lanes;
    const bool isFound = m_isFirstRare ? (m_haveManyVariants ? isInSteps<4, true>(start, steps)
                                                             : isInSteps<2, true>(start, steps))
                                       : (m_haveManyVariants ? isInSteps<4, false>(start, steps)
                                                             : isInSteps<2, false>(start, steps));
    if (isFound)
        return true;
    for (qsizetype place = steps * lanes; place < places; ++place) {
        if (matchesAt(start + place))
            return true;
    }
    return false;
}

} // namespace driftbox
