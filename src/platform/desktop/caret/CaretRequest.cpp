#include "platform/desktop/caret/CaretRequest.h"

#include "platform/desktop/caret/FocusSearch.h"

#include <chrono>
#include <utility>

#include <QtCore/QTimer>

namespace driftbox {

namespace {
// Somewhat less than what is promised, since a timer is never early.
constexpr std::chrono::milliseconds deadline{140};

// A browser has to ask its page for the caret and the places of characters. It does so when it is
// asked for them, and meanwhile answers that they are nowhere.
constexpr std::chrono::milliseconds patience{15};
constexpr int maxQueries = 5;
} // namespace

CaretRequest::CaretRequest(const QDBusConnection& bus,
                           const std::optional<AccessibleReference>& before,
                           ActiveWindow& activeWindow, QObject* parent)
    : QObject(parent)
    , m_bus(bus)
    , m_before(before)
    , m_activeWindow(activeWindow)
{
    QTimer::singleShot(deadline, Qt::PreciseTimer, this, [this] { finish(std::nullopt); });
    if (before)
        query(*before);
    else
        search();
}

void CaretRequest::query(const AccessibleReference& element)
{
    auto* question = new CaretQuery(m_bus, element, m_activeWindow, this);
    connect(question, &CaretQuery::finished, this,
            [this, element](const CaretQuery::Result& result) {
                if (result.focused)
                    m_focused = element;
                if (result.rectangle)
                    finish(result);
                else if (result.hasCaret && ++m_queries < maxQueries)
                    QTimer::singleShot(patience, this, [this, element] { query(element); });
                else if (result.focused || m_searched)
                    finish(std::nullopt);
                else
                    search();
            });
}

void CaretRequest::search()
{
    m_searched = true;
    auto* search = new FocusSearch(m_bus, m_before, this);
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
    if (!std::exchange(m_finished, true))
        Q_EMIT finished(result);
}

} // namespace driftbox
