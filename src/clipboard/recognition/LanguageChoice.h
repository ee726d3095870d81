#pragma once

#include <vector>

#include <QtCore/QStringList>

namespace driftbox {

/// How sure one language is of each of a few samples: 0 to 100.
struct SampleReadings
{
    QString language;
    std::vector<int> confidences;
};

/// The languages of a page, the likeliest first.
struct LanguageChoice
{
    QStringList likely;   ///< each is the best for some part of the page
    QStringList unlikely; ///< the others
};

/// A line read in its own language seldom has less confidence, one read in another rarely as much.
inline constexpr int sureConfidence = 80;

/// What is less is no text at all.
inline constexpr int minConfidence = 40;

/// By how much the reading in a less likely language must be surer to be taken. Languages that
/// share their characters, such as the two Chinese ones, differ by little in a single line.
inline constexpr int likelinessMargin = 5;

/// Whether every sample is surely written in one of the languages in `readings`.
[[nodiscard]] bool explainAll(const std::vector<SampleReadings>& readings);

/// `readings` are of the same samples.
[[nodiscard]] LanguageChoice languagesOf(std::vector<SampleReadings> readings);

} // namespace driftbox
