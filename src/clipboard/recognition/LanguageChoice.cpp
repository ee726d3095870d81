#include "clipboard/recognition/LanguageChoice.h"

#include <algorithm>
#include <numeric>

namespace driftbox {

namespace {

int total(const SampleReadings& readings)
{
    return std::accumulate(readings.confidences.begin(), readings.confidences.end(), 0);
}

int bestConfidence(const std::vector<SampleReadings>& readings, size_t sample)
{
    int best = 0;
    for (const SampleReadings& of : readings)
        best = std::max(best, of.confidences[sample]);
    return best;
}

} // namespace

bool explainAll(const std::vector<SampleReadings>& readings)
{
    if (readings.empty())
        return false;
    for (size_t sample = 0; sample < readings.front().confidences.size(); ++sample) {
        if (bestConfidence(readings, sample) < sureConfidence)
            return false;
    }
    return true;
}

LanguageChoice languagesOf(std::vector<SampleReadings> readings)
{
    LanguageChoice choice;
    if (readings.empty())
        return choice;
    std::ranges::stable_sort(readings, std::ranges::greater(), total);
    std::vector<bool> wins(readings.size());
    for (size_t sample = 0; sample < readings.front().confidences.size(); ++sample) {
        const int best = bestConfidence(readings, sample);
        if (best < minConfidence)
            continue;
        const auto winner = std::ranges::find_if(readings, [&](const SampleReadings& of) {
            return of.confidences[sample] + likelinessMargin > best;
        });
        wins[static_cast<size_t>(winner - readings.begin())] = true;
    }
    for (size_t i = 0; i < readings.size(); ++i)
        (wins[i] ? choice.likely : choice.unlikely).push_back(readings[i].language);
    return choice;
}

} // namespace driftbox
