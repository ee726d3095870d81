#pragma once

#include "platform/CaretLookup.h"
#include "platform/desktop/caret/AccessibilityBus.h"
#include "platform/desktop/caret/CaretQuery.h"

namespace driftbox {

class ActiveWindow;
class Screens;

/// Locates the caret through AT-SPI, with direct, asynchronous calls on the accessibility bus. An
/// application that hangs is given up at the deadline; the event loop is never blocked.
///
/// Nothing is queried in advance and no events are registered for: with any event listener present,
/// Qt applications send every key over the bus, and lose or repeat some of their shortcuts.
class AtSpiCaretLookup final : public CaretLookup
{
    Q_OBJECT

public:
    /// All three references must outlive the lookup.
    AtSpiCaretLookup(const QDBusConnection& session, TaskRunner& tasks, ActiveWindow& activeWindow,
                     const Screens& screens, QObject* parent = nullptr);

    void caretRectangle(QObject* owner, Answer answer) override;

private:
    [[nodiscard]] std::optional<QRectF> toDesktop(const CaretQuery::Result& result) const;

    ActiveWindow& m_activeWindow;
    const Screens& m_screens;
    AccessibilityBus m_bus;
    std::optional<AccessibleReference> m_lastFocused; ///< usually still focused
};

} // namespace driftbox
