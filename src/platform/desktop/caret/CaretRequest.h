#pragma once

#include "platform/desktop/caret/CaretQuery.h"

#include <optional>

#include <QtCore/QObject>

namespace driftbox {

/// One caller's request for the caret: queries the element that probably has the focus, and
/// searches for another when that element has lost it. Fails at its deadline. Destroying the
/// request cancels it. Main thread only.
class CaretRequest final : public QObject
{
    Q_OBJECT

public:
    /// Starts the request with the element that last had the focus. `activeWindow` must outlive the
    /// request.
    CaretRequest(const QDBusConnection& bus, const std::optional<AccessibleReference>& lastFocused,
                 ActiveWindow& activeWindow, QObject* parent);

    /// The element that has the focus, once it has replied.
    [[nodiscard]] const std::optional<AccessibleReference>& focused() const { return m_focused; }

Q_SIGNALS:
    /// Emitted once, from the event loop; the result has a rectangle, unless it is none.
    void finished(const std::optional<driftbox::CaretQuery::Result>& result);

private:
    void query(const AccessibleReference& element);
    void search();
    void finish(const std::optional<CaretQuery::Result>& result);

    QDBusConnection m_bus;
    std::optional<AccessibleReference> m_lastFocused;
    ActiveWindow& m_activeWindow;
    std::optional<AccessibleReference> m_focused;
    bool m_hasSearched = false;
    int m_queries = 0; ///< without a usable reply
    bool m_isFinished = false;
};

} // namespace driftbox
