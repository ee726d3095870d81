#pragma once

#include <array>
#include <vector>

#include <QtCore/QLocale>
#include <QtCore/QString>
#include <QtCore/QStringView>

namespace driftbox {

/// Finds one text in many others, whatever the case of the letters under a locale. Made for
/// searching tens of megabytes between two frames: eight characters are looked at in a step.
class CaseInsensitiveMatcher
{
public:
    /// The characters that are looked at in one step, and the answer for each.
    static constexpr qsizetype lanes = 8;
    using Lanes = char16_t __attribute__((vector_size(lanes * sizeof(char16_t))));
    using Mask = decltype(Lanes() == Lanes());

    CaseInsensitiveMatcher(const QString& needle, const QLocale& locale);

    /// Whether `text` contains the needle. An empty needle is in every text.
    [[nodiscard]] bool isIn(QStringView text) const;

private:
    /// The characters that one character of the needle matches; unused places repeat the first.
    using Variants = std::array<char16_t, 4>;

    [[nodiscard]] bool matchesAt(const char16_t* text) const;
    /// Whether the needle is at one of the places, counted from `text`, whose lane is set.
    [[nodiscard]] bool matchesAtOneOf(const char16_t* text, const Mask& places) const;
    /// Whether the needle is at one of the first `steps` times `lanes` places.
    template <size_t variantCount, bool isFirstRare>
    [[nodiscard]] bool isInSteps(const char16_t* text, qsizetype steps) const;

    std::vector<Variants> m_needle;
    size_t m_first = 0;  ///< the two characters of the needle that are looked for in steps: those
    size_t m_second = 0; ///< that are rarest in prose
    bool m_isFirstRare = false;      ///< the first of them is hardly ever met in prose
    bool m_haveManyVariants = false; ///< one of these two matches more than two characters
};

} // namespace driftbox
