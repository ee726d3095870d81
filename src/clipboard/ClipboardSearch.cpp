#include "clipboard/ClipboardSearch.h"

#include "core/CaseInsensitiveMatcher.h"

#include <algorithm>
#include <future>
#include <iterator>
#include <numeric>

namespace driftbox {

namespace {

// Enough to delete a few words; each result may be as long as the history.
constexpr size_t maxCachedResults = 32;

// From this number of texts on, a second thread pays off.
constexpr std::ptrdiff_t parallelThreshold = 500;

using Indices = ClipboardSearch::Indices;

Indices allIndices(size_t count)
{
    Indices indices(count);
    std::iota(indices.begin(), indices.end(), 0);
    return indices;
}

Indices matching(const std::vector<ClipboardItem>& items, const Indices& candidates,
                 const QString& query)
{
    const CaseInsensitiveMatcher matcher(query, QLocale());
    using Candidate = Indices::const_iterator;
    const auto search = [&](Candidate begin, Candidate end) {
        Indices found;
        std::copy_if(begin, end, std::back_inserter(found), [&](std::uint32_t index) {
            const ClipboardItem& item = items[index];
            return item.kind == ClipboardItem::Kind::text && item.textContent &&
                   matcher.isIn(*item.textContent);
        });
        return found;
    };
    if (std::ssize(candidates) < parallelThreshold)
        return search(candidates.begin(), candidates.end());

    const auto middle = candidates.begin() + std::ssize(candidates) / 2;
    // If no thread can be created, `get` searches the second half on this one.
    std::future<Indices> second =
        std::async(std::launch::async | std::launch::deferred, search, middle, candidates.end());
    Indices found = search(candidates.begin(), middle);
    const Indices rest = second.get();
    found.insert(found.end(), rest.begin(), rest.end());
    return found;
}

} // namespace

const Indices& ClipboardSearch::find(const std::vector<ClipboardItem>& items, const QString& query)
{
    while (!m_results.empty() && !query.contains(m_results.back().query))
        m_results.pop_back();
    if (!m_results.empty() && m_results.back().query == query)
        return m_results.back().indices;

    const Indices candidates =
        m_results.empty() ? allIndices(items.size()) : m_results.back().indices;
    m_results.push_back({query, matching(items, candidates, query)});
    if (m_results.size() > maxCachedResults)
        m_results.pop_front();
    return m_results.back().indices;
}

} // namespace driftbox
