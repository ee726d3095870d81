#pragma once

#include "platform/LocalKeyMonitor.h"
#include "platform/MonitorRegistry.h"

#include <optional>

#include <QtCore/QObject>

class QKeyEvent;

namespace driftbox {

/// Receives key presses through an event filter on the application object, before the toolkit's own
/// shortcuts. A consumed press does not trigger shortcuts either. The application object must exist
/// before the monitor and outlive it.
class QtLocalKeyMonitor final : public QObject, public LocalKeyMonitor
{
public:
    QtLocalKeyMonitor();

    [[nodiscard]] std::unique_ptr<MonitorToken> addMonitor(Handler handler) override;

    [[nodiscard]] bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    /// The toolkit delivers one press several times: first as a ShortcutOverride, then as a
    /// KeyPress, each to one object after the other. The handlers are called the first time only.
    struct Verdict
    {
        quint64 timestamp = 0;
        int key = 0;
        bool pressed = false; ///< the KeyPress has been seen, not only the ShortcutOverride
        bool taken = false;
    };

    /// Assistive technology may hold presses back and post copies of them later. Originals are
    /// handled before that; copies are ignored because the handlers have seen the originals.
    [[nodiscard]] bool belongsToCopy(const QEvent& shortcutOverride) const;
    [[nodiscard]] bool take(const QObject& receiver, QEvent& event);
    [[nodiscard]] bool isNewPress(const QObject& receiver, const QKeyEvent& event) const;
    [[nodiscard]] bool isTaken(const QObject& receiver, const QKeyEvent& event);

    void recordRelease(const QKeyEvent& event);
    /// Whether the key has been held down since an earlier press.
    [[nodiscard]] bool isRepeated(const QKeyEvent& event);

    /// The last pressed key. Times are in milliseconds.
    struct LastKey
    {
        int key = 0;
        quint64 pressed = 0;
        std::optional<quint64> released = {};
    };

    MonitorRegistry<Handler> m_registry;
    std::optional<Verdict> m_verdict;
    std::optional<LastKey> m_lastKey;
    bool m_lastWasCopy = false;
};

} // namespace driftbox
