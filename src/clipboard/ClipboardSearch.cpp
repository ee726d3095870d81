#include "clipboard/ClipboardSearch.h"

#include "core/CaseInsensitiveMatcher.h"

#include <algorithm>
#include <future>
#include <iterator>
#include <numeric>

namespace driftbox {

namespace {

// Enough to go back through a few words; each may be as long as the history.
constexpr size_t maxRemembered = 32;

// So many texts are worth a second thread.
constexpr std::ptrdiff_t worthSharing = 500;

using Places = ClipboardSearch::Places;

Places allPlaces(size_t count)
{
    Places places(count);
    std::iota(places.begin(), places.end(), 0);
    return places;
}

Places matching(const std::vector<ClipboardItem>& items, const Places& candidates,
                const QString& wanted)
{
    const CaseInsensitiveMatcher matcher(wanted, QLocale());
    using Candidate = Places::const_iterator;
    const auto search = [&](Candidate begin, Candidate end) {
        Places found;
        std::copy_if(begin, end, std::back_inserter(found), [&](std::uint32_t place) {
            const ClipboardItem& item = items[place];
            return item.kind == ClipboardItem::Kind::text && item.textContent &&
                   matcher.isIn(*item.textContent);
        });
        return found;
    };
    if (std::ssize(candidates) < worthSharing)
        return search(candidates.begin(), candidates.end());

    const auto middle = candidates.begin() + std::ssize(candidates) / 2;
    // Where no thread can be had, this one searches the second half, too.
    std::future<Places> second =
        std::async(std::launch::async | std::launch::deferred, search, middle, candidates.end());
    Places found = search(candidates.begin(), middle);
    const Places rest = second.get();
    found.insert(found.end(), rest.begin(), rest.end());
    return found;
}

} // namespace

const Places& ClipboardSearch::find(const std::vector<ClipboardItem>& items, const QString& wanted)
{
    while (!m_found.empty() && !wanted.contains(m_found.back().wanted))
        m_found.pop_back();
    if (!m_found.empty() && m_found.back().wanted == wanted)
        return m_found.back().places;

    const Places candidates = m_found.empty() ? allPlaces(items.size()) : m_found.back().places;
    m_found.push_back({wanted, matching(items, candidates, wanted)});
    if (m_found.size() > maxRemembered)
        m_found.pop_front();
    return m_found.back().places;
}

} // namespace driftbox
