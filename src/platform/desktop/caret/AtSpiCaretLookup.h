#pragma once

#include "platform/CaretLookup.h"
#include "platform/desktop/caret/AccessibilityBus.h"
#include "platform/desktop/caret/CaretQuery.h"

namespace driftbox {

class ActiveWindow;
class Screens;

/// Finds the caret over AT-SPI. Speaks to the accessibility bus directly and asynchronously: an
/// application that hangs is given up after the deadline, and meanwhile the event loop runs on.
///
/// Nothing is asked for beforehand: as soon as anybody listens to events, Qt applications send
/// every key over the bus, and lose or repeat some of their shortcuts on the way.
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
    std::optional<AccessibleReference> m_lastFocused; ///< most often it still is
};

} // namespace driftbox
