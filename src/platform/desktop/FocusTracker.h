#pragma once

#include "platform/desktop/AccessibleObject.h"

#include <optional>

#include <QtCore/QObject>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusServiceWatcher>

namespace driftbox {

class AccessibilityBus;

/// Knows which element of which application has the keyboard focus, by what applications tell
/// unasked. Some do not tell when their window loses the keyboard: ask the element itself before
/// trusting it. Only focus changes are listened to, so
/// that typing in another program wakes nobody up here. Main thread only.
class FocusTracker final : public QObject
{
    Q_OBJECT

public:
    /// `bus` must outlive this.
    explicit FocusTracker(AccessibilityBus& bus, QObject* parent = nullptr);

    [[nodiscard]] const std::optional<AccessibleReference>& focused() const { return m_focused; }

    /// What was known has turned out to be wrong.
    void forget() { m_focused.reset(); }

    /// What a search has found out; what applications have told meanwhile counts for more.
    void noteFound(const std::optional<AccessibleReference>& focused)
    {
        if (!m_focused)
            m_focused = focused;
    }

private Q_SLOTS:
    void noteFocusChange(const QDBusMessage& signal); ///< by name: what the bus library calls

private:
    void listen();
    void registerForEvents();

    AccessibilityBus& m_bus;
    QDBusServiceWatcher m_registry;
    std::optional<AccessibleReference> m_focused;
};

} // namespace driftbox
