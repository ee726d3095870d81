#pragma once

#include "clipboard/ClipboardItem.h"

#include <cstdint>
#include <deque>
#include <vector>

namespace driftbox {

/// Incremental search of the history while a query is being typed: a query that contains an earlier
/// one searches only that one's matches, and returning to an earlier query reuses its result.
class ClipboardSearch
{
public:
    using Indices = std::vector<std::uint32_t>;

    /// The ascending indices of the texts in `items` that contain `query`, ignoring case according
    /// to the user's locale. Call `reset` before searching other items. The result is valid until
    /// the next call.
    [[nodiscard]] const Indices& find(const std::vector<ClipboardItem>& items,
                                      const QString& query);

    /// Discards the cached results, because the items change or the search ends.
    void reset() { m_results.clear(); }

private:
    struct Result
    {
        QString query;
        Indices indices;
    };

    std::deque<Result> m_results; ///< each query contains the one before
};

} // namespace driftbox
