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
    CaseInsensitiveMatcher(const QString& needle, const QLocale& locale);

    /// Whether `text` contains the needle. An empty needle is in every text.
    [[nodiscard]] bool isIn(QStringView text) const;

private:
    /// The characters that one character of the needle matches; unused places repeat the first.
    using Variants = std::array<char16_t, 4>;

    [[nodiscard]] bool matchesAt(const char16_t* text) const;

    std::vector<Variants> m_needle;
};

} // namespace driftbox
