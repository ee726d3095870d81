#include "platform/desktop/caret/CaretRequest.h"

#include "platform/desktop/caret/FocusSearch.h"

#include <chrono>
#include <utility>

#include <QtCore/QTimer>

namespace driftbox {

namespace {
// A little less than the promised 150 ms, since timers may be late.
constexpr std::chrono::milliseconds deadline{140};

// A browser must query its page for the positions of the caret and of characters. It does so on the
// first request, and reports no position until then.
constexpr std::chrono::milliseconds retryDelay{15};
constexpr int maxQueries = 5;
} // namespace

CaretRequest::CaretRequest(const QDBusConnection& bus,
                           const std::optional<AccessibleReference>& lastFocused,
                           ActiveWindow& activeWindow, QObject* parent)
    : QObject(parent)
    , m_bus(bus)
    , m_lastFocused(lastFocused)
    , m_activeWindow(activeWindow)
{
    QTimer::singleShot(deadline, Qt::PreciseTimer, this, [this] { finish(std::nullopt); });
    if (lastFocused)
        query(*lastFocused);
    else
        search();
}

void CaretRequest::query(const AccessibleReference& element)
{
    auto* caretQuery = new CaretQuery(m_bus, element, m_activeWindow, this);
    connect(caretQuery, &CaretQuery::finished, this,
            [this, element](const CaretQuery::Result& result) {
                if (result.focused)
                    m_focused = element;
                if (result.rectangle)
                    finish(result);
                else if (result.hasCaret && ++m_queries < maxQueries)
                    QTimer::singleShot(retryDelay, this, [this, element] { query(element); });
                else if (result.focused || m_hasSearched)
                    finish(std::nullopt);
                else
                    search();
            });
}

void CaretRequest::search()
{
    m_hasSearched = true;
    auto* search = new FocusSearch(m_bus, m_lastFocused, this);
    connect(search, &FocusSearch::finished, this,
            [this](const std::optional<AccessibleReference>& focused) {
                if (focused)
                    query(*focused);
                else
                    finish(std::nullopt);
            });
}

void CaretRequest::finish(const std::optional<CaretQuery::Result>& result)
{
    if (!std::exchange(m_isFinished, true))
        Q_EMIT finished(result);
}

} // namespace driftbox
