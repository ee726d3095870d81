#pragma once

#include "platform/desktop/CaretQuery.h"

#include <optional>

#include <QtCore/QObject>

namespace driftbox {

class FocusTracker;

/// One caller's question for the caret: asks the element that is known to have the focus, and looks
/// for another when that turns out to be wrong. Gives up at its deadline. Destroying it ends it.
/// Main thread only.
class CaretRequest final : public QObject
{
    Q_OBJECT

public:
    /// Starts to ask. The references must outlive the request.
    CaretRequest(const QDBusConnection& bus, FocusTracker& focus, ActiveWindow& activeWindow,
                 QObject* parent);

Q_SIGNALS:
    /// Once, later; the result has a rectangle, unless it is none.
    void finished(const std::optional<driftbox::CaretQuery::Result>& result);

private:
    void query(const AccessibleReference& element);
    void search();
    void finish(const std::optional<CaretQuery::Result>& result);

    QDBusConnection m_bus;
    FocusTracker& m_focus;
    ActiveWindow& m_activeWindow;
    bool m_searched = false;
    int m_queries = 0; ///< without an answer that helps
    bool m_finished = false;
};

} // namespace driftbox
