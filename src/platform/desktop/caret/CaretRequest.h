#pragma once

#include "platform/desktop/caret/CaretQuery.h"

#include <optional>

#include <QtCore/QObject>

namespace driftbox {

/// One caller's question for the caret: asks the element that probably has the focus, and looks for
/// another when that turns out to be wrong. Gives up at its deadline. Destroying it ends it.
/// Main thread only.
class CaretRequest final : public QObject
{
    Q_OBJECT

public:
    /// Starts to ask, first of all the element that had the focus before. `activeWindow` must
    /// outlive the request.
    CaretRequest(const QDBusConnection& bus, const std::optional<AccessibleReference>& before,
                 ActiveWindow& activeWindow, QObject* parent);

    /// The element that has the focus, once it has answered.
    [[nodiscard]] const std::optional<AccessibleReference>& focused() const { return m_focused; }

Q_SIGNALS:
    /// Once, later; the result has a rectangle, unless it is none.
    void finished(const std::optional<driftbox::CaretQuery::Result>& result);

private:
    void query(const AccessibleReference& element);
    void search();
    void finish(const std::optional<CaretQuery::Result>& result);

    QDBusConnection m_bus;
    std::optional<AccessibleReference> m_before;
    ActiveWindow& m_activeWindow;
    std::optional<AccessibleReference> m_focused;
    bool m_searched = false;
    int m_queries = 0; ///< without an answer that helps
    bool m_finished = false;
};

} // namespace driftbox
