#include "clipboard/ClipboardSearch.h"

#include "core/CaseInsensitiveMatcher.h"

namespace driftbox {

namespace {

// Enough to go back through a few words; each may be as long as the history.
constexpr size_t mostRemembered = 32;

} // namespace

const ClipboardSearch::Places& ClipboardSearch::find(const std::vector<ClipboardItem>& items,
                                                     const QString& wanted)
{
    while (!m_found.empty() && !wanted.contains(m_found.back().wanted))
        m_found.pop_back();
    if (!m_found.empty() && m_found.back().wanted == wanted)
        return m_found.back().places;

    const CaseInsensitiveMatcher matcher(wanted, QLocale());
    const auto matches = [&](const ClipboardItem& item) {
        return item.kind == ClipboardItem::Kind::text && item.textContent &&
               matcher.isIn(*item.textContent);
    };
    Places places;
    if (m_found.empty()) {
        for (std::uint32_t place = 0; place < items.size(); ++place) {
            if (matches(items[place]))
                places.push_back(place);
        }
    } else {
        for (const std::uint32_t place : m_found.back().places) {
            if (matches(items[place]))
                places.push_back(place);
        }
    }
    m_found.push_back({wanted, std::move(places)});
    if (m_found.size() > mostRemembered)
        m_found.pop_front();
    return m_found.back().places;
}

} // namespace driftbox
