#pragma once

#include "platform/LocalKeyMonitor.h"
#include "platform/MonitorRegistry.h"

#include <optional>

#include <QtCore/QObject>

class QKeyEvent;

namespace driftbox {

/// Sees key presses as an event filter of the application object, ahead of the toolkit's own
/// shortcuts. A press that is taken starts no shortcut either. The application object must exist
/// before the monitor and outlive it.
class QtLocalKeyMonitor final : public QObject, public LocalKeyMonitor
{
public:
    QtLocalKeyMonitor();

    [[nodiscard]] std::unique_ptr<MonitorToken> addMonitor(Handler handler) override;

    [[nodiscard]] bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    /// The toolkit shows one press several times: as a question whether it is a shortcut, then as
    /// the press, each to one object after the other. The handlers are asked the first time only.
    struct Verdict
    {
        quint64 timestamp = 0;
        int key = 0;
        bool pressed = false; ///< the press itself has been seen, not only the question
        bool taken = false;
    };

    /// Assistive technology holds presses back and posts copies of them later. Presses are taken
    /// before that, and copies left alone: the handlers have seen the originals.
    [[nodiscard]] bool belongsToCopy(const QEvent& question) const;
    [[nodiscard]] bool take(const QObject& receiver, QEvent& event);
    [[nodiscard]] bool isNewPress(const QObject& receiver, const QKeyEvent& event) const;
    [[nodiscard]] bool isTaken(const QObject& receiver, const QKeyEvent& event);

    void noteRelease(const QKeyEvent& event);
    /// Whether the key has been held down since an earlier press.
    [[nodiscard]] bool isRepeated(const QKeyEvent& event);

    /// The key that was pressed last. Times are in milliseconds.
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
