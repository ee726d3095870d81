#pragma once

#include "platform/KeyEventMonitor.h"

#include <algorithm>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

#include <QtCore/QtGlobal>

namespace driftbox {

/// The installed handlers of a monitor, in the order of installation, each represented by a token.
/// A handler may install and remove monitors, including its own, while it runs: one removed
/// meanwhile is not called any more, one installed meanwhile is called from the next notification
/// on. Main thread only.
template <typename Handler>
class MonitorRegistry
{
public:
    [[nodiscard]] std::unique_ptr<MonitorToken> add(Handler handler)
    {
        auto entry = std::make_shared<Handler>(std::move(handler));
        m_entries->push_back(entry);
        return std::make_unique<Token>(m_entries, entry);
    }

    /// Calls the handlers with `arguments` until one returns true, if they return bool, or else all
    /// of them. Returns whether one returned true.
    template <typename... Arguments>
    bool notify(const Arguments&... arguments) const
    {
        const auto entries = *m_entries;
        for (const auto& entry : entries) {
            if (std::ranges::find(*m_entries, entry) == m_entries->end())
                continue;
            if constexpr (std::is_same_v<typename Handler::result_type, bool>) {
                if ((*entry)(arguments...))
                    return true;
            } else {
                (*entry)(arguments...);
            }
        }
        return false;
    }

    [[nodiscard]] std::size_t count() const { return m_entries->size(); }

private:
    using Entries = std::vector<std::shared_ptr<Handler>>;

    class Token final : public MonitorToken
    {
    public:
        Token(const std::shared_ptr<Entries>& entries, std::shared_ptr<Handler> entry)
            : m_entries(entries)
            , m_entry(std::move(entry))
        {
        }
        Q_DISABLE_COPY_MOVE(Token)
        ~Token() override
        {
            if (const auto entries = m_entries.lock())
                std::erase(*entries, m_entry);
        }

    private:
        std::weak_ptr<Entries> m_entries;
        std::shared_ptr<Handler> m_entry;
    };

    std::shared_ptr<Entries> m_entries = std::make_shared<Entries>();
};

} // namespace driftbox
