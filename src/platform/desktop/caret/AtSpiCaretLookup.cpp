#include "platform/desktop/caret/AtSpiCaretLookup.h"

#include "platform/Screens.h"
#include "platform/desktop/caret/CaretRequest.h"

#include <utility>

namespace driftbox {

AtSpiCaretLookup::AtSpiCaretLookup(const QDBusConnection& session, TaskRunner& tasks,
                                   ActiveWindow& activeWindow, const Screens& screens,
                                   QObject* parent)
    : CaretLookup(parent)
    , m_activeWindow(activeWindow)
    , m_screens(screens)
    , m_bus(session, tasks)
{
}

void AtSpiCaretLookup::caretRectangle(QObject* owner, Answer answer)
{
    if (!m_bus.connection().isConnected()) {
        m_bus.retry();
        answer(std::nullopt);
        return;
    }
    auto* request = new CaretRequest(m_bus.connection(), m_lastFocused, m_activeWindow, this);
    connect(owner, &QObject::destroyed, request, &QObject::deleteLater);
    connect(request, &CaretRequest::finished, this,
            [this, request] { m_lastFocused = request->focused(); });
    connect(request, &CaretRequest::finished, owner,
            [this, request, answer = std::move(answer)](const auto& result) {
                request->deleteLater();
                answer(result ? toDesktop(*result) : std::nullopt);
            });
}

std::optional<QRectF> AtSpiCaretLookup::toDesktop(const CaretQuery::Result& result) const
{
    return CaretGeometry::toDesktop(*result.rectangle, result.window, m_screens.screens());
}

} // namespace driftbox
