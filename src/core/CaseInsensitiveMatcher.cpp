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

// The case-folded character. Turkic languages distinguish dotted from dotless i.
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

// Every character that folding changes, sorted by its folded form.
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

// The low surrogate of the same letter in the other case, or `low` if the high surrogates differ.
char16_t otherLowSurrogate(char16_t high, char16_t low)
{
    const char32_t letter = QChar::surrogateToUcs4(high, low);
    const char32_t upper = QChar::toUpper(letter);
    const char32_t other = upper == letter ? QChar::toLower(letter) : upper;
    return QChar::highSurrogate(other) == high ? QChar::lowSurrogate(other) : low;
}

// Relative frequency across many languages; -1 for characters that are rarer than all of these.
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
        for (auto next = variants.begin() + 1;
             next != variants.end() && other != pairs.end() && other->folded == variants.front();
             ++other)
            *next++ = other->character;
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
    m_hasManyVariants = hasMany(m_first) || hasMany(m_second);
    m_isFirstRare = !m_needle.empty() && frequency(m_needle[m_first].front()) < frequency(u'u');
}

bool CaseInsensitiveMatcher::matchesAt(const char16_t* text) const
{
    return std::ranges::all_of(m_needle, [&text](const Variants& variants) {
        const char16_t character = *text++;
        return std::ranges::find(variants, character) != variants.end();
    });
}

bool CaseInsensitiveMatcher::matchesAtAny(const char16_t* text, const Mask& candidates) const
{
    constexpr int bitsPerLane = 16;
    const auto words = wordsOf(candidates);
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
bool CaseInsensitiveMatcher::isInBlocks(const char16_t* text, qsizetype blocks) const
{
    const Variants first = m_needle[m_first];
    const Variants second = m_needle[m_second];
    const auto matching = [](const char16_t* block, const Variants& variants) {
        const Lanes characters = load(block);
        Mask mask = characters == variants[0];
        for (size_t variant = 1; variant < variantCount; ++variant)
            mask |= characters == variants[variant];
        return mask;
    };
    const char16_t* const end = text + blocks * lanes;
    for (const char16_t* block = text; block != end; block += lanes) {
        const Mask candidates = matching(block + m_first, first);
        // For a frequent character the mispredicted branch costs more than the second comparison.
        if constexpr (isFirstRare) {
            if (!any(candidates))
                continue;
        }
        const Mask both = candidates & matching(block + m_second, second);
        if (any(both) && matchesAtAny(block, both))
            return true;
    }
    return false;
}

bool CaseInsensitiveMatcher::isIn(QStringView text) const
{
    const qsizetype positions = text.size() - static_cast<qsizetype>(m_needle.size()) + 1;
    if (m_needle.empty() || positions <= 0)
        return m_needle.empty();

    const char16_t* const start = text.utf16();
    const qsizetype blocks = positions / lanes;
    const bool isFound = m_isFirstRare ? (m_hasManyVariants ? isInBlocks<4, true>(start, blocks)
                                                            : isInBlocks<2, true>(start, blocks))
                                       : (m_hasManyVariants ? isInBlocks<4, false>(start, blocks)
                                                            : isInBlocks<2, false>(start, blocks));
    if (isFound)
        return true;
    for (qsizetype position = blocks * lanes; position < positions; ++position) {
        if (matchesAt(start + position))
            return true;
    }
    return false;
}

} // namespace driftbox
