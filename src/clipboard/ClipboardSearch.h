#pragma once

#include "clipboard/ClipboardItem.h"

#include <cstdint>
#include <deque>
#include <vector>

namespace driftbox {

/// Searches the history while a query is being typed: a query that contains an earlier one is
/// looked for only where that was found, and going back to an earlier one looks nowhere.
class ClipboardSearch
{
public:
    using Places = std::vector<std::uint32_t>;

    /// The places in `items`, in order, of the texts that contain `wanted` in whatever case under
    /// the user's locale. The items must be those of the calls before, since `forget`.
    [[nodiscard]] const Places& find(const std::vector<ClipboardItem>& items,
                                     const QString& wanted);

    /// The items are others, or the search is over.
    void forget() { m_found.clear(); }

private:
    struct Found
    {
        QString wanted;
        Places places;
    };

    std::deque<Found> m_found; ///< each is contained in the next one
};

} // namespace driftbox
