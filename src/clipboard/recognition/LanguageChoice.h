#pragma once

#include <vector>

#include <QtCore/QStringList>

namespace driftbox {

/// The confidences, from 0 to 100, with which one language reads each sample.
struct SampleReadings
{
    QString language;
    std::vector<int> confidences;
};

/// The languages of a page, most likely first.
struct LanguageChoice
{
    QStringList likely;   ///< each is the best for at least one sample
    QStringList unlikely; ///< the others
};

/// A line read in its own language is seldom below this, one read in another language rarely above.
inline constexpr int sureConfidence = 80;

/// Anything below is not text.
inline constexpr int minConfidence = 40;

/// How much more confident the reading in a less likely language must be to be preferred. Languages
/// that share characters, such as the two Chinese ones, differ little in a single line.
inline constexpr int likelinessMargin = 5;

/// Whether every sample is read with `sureConfidence` in one of the languages in `readings`.
[[nodiscard]] bool explainAll(const std::vector<SampleReadings>& readings);

/// `readings` must all be of the same samples.
[[nodiscard]] LanguageChoice languagesOf(std::vector<SampleReadings> readings);

} // namespace driftbox
