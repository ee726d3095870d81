#include "platform/desktop/CaretRequest.h"

#include "platform/desktop/FocusSearch.h"
#include "platform/desktop/FocusTracker.h"

#include <chrono>
#include <utility>

#include <QtCore/QTimer>

namespace driftbox {

namespace {
// Somewhat less than what is promised, since a timer is never early.
constexpr std::chrono::milliseconds deadline{140};
} // namespace

CaretRequest::CaretRequest(const QDBusConnection& bus, FocusTracker& focus,
                           ActiveWindow& activeWindow, QObject* parent)
    : QObject(parent)
    , m_bus(bus)
    , m_focus(focus)
    , m_activeWindow(activeWindow)
{
    QTimer::singleShot(deadline, Qt::PreciseTimer, this, [this] { finish(std::nullopt); });
    if (m_focus.focused())
        query(*m_focus.focused());
    else
        search();
}

void CaretRequest::query(const AccessibleReference& element)
{
    auto* query = new CaretQuery(m_bus, element, m_activeWindow, this);
    connect(query, &CaretQuery::finished, this, [this](const CaretQuery::Result& result) {
        if (result.rectangle)
            finish(result);
        else if (result.focused || m_searched)
            finish(std::nullopt);
        else
            search();
    });
}

void CaretRequest::search()
{
    m_searched = true;
    auto* search = new FocusSearch(m_bus, this);
    connect(search, &FocusSearch::finished, this,
            [this](const std::optional<AccessibleReference>& focused) {
                m_focus.noteFound(focused);
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
