#include "platform/desktop/QtLocalKeyMonitor.h"

#include <utility>

#include <QtCore/QCoreApplication>
#include <QtGui/QKeyEvent>

namespace driftbox {

QtLocalKeyMonitor::QtLocalKeyMonitor()
{
    QCoreApplication::instance()->installEventFilter(this);
}

std::unique_ptr<MonitorToken> QtLocalKeyMonitor::addMonitor(Handler handler)
{
    return m_registry.add(std::move(handler));
}

bool QtLocalKeyMonitor::eventFilter(QObject* receiver, QEvent* event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        // The filter that was installed last is called first.
        QCoreApplication::instance()->installEventFilter(this);
        return !belongsToCopy(*event) && take(*receiver, *event);
    case QEvent::KeyPress:
        m_lastWasCopy = !event->spontaneous();
        return !m_lastWasCopy && take(*receiver, *event);
    case QEvent::KeyRelease:
        m_verdict.reset();
        recordRelease(static_cast<const QKeyEvent&>(*event));
        return false;
    default:
        return false;
    }
}

// Neither a copy nor the ShortcutOverride that it causes has a time stamp.
bool QtLocalKeyMonitor::belongsToCopy(const QEvent& shortcutOverride) const
{
    return m_lastWasCopy && static_cast<const QKeyEvent&>(shortcutOverride).timestamp() == 0;
}

bool QtLocalKeyMonitor::take(const QObject& receiver, QEvent& event)
{
    if (!isTaken(receiver, static_cast<const QKeyEvent&>(event)))
        return false;
    // An accepted ShortcutOverride keeps the toolkit from looking for a shortcut.
    event.accept();
    return true;
}

bool QtLocalKeyMonitor::isNewPress(const QObject& receiver, const QKeyEvent& event) const
{
    if (!m_verdict || m_verdict->timestamp != event.timestamp() || m_verdict->key != event.key())
        return true;
    // A KeyPress is delivered to a window first; a ShortcutOverride never follows its KeyPress.
    const bool startsSequence = event.type() == QEvent::ShortcutOverride || receiver.isWindowType();
    return m_verdict->pressed && startsSequence;
}

void QtLocalKeyMonitor::recordRelease(const QKeyEvent& event)
{
    if (m_lastKey && m_lastKey->key == event.key() && !event.isAutoRepeat())
        m_lastKey->released = event.timestamp();
}

// The toolkit's own detection of repeats is unreliable: on a busy machine it may see a release
// before the simultaneous press, and releases get lost while the focus moves from one window to
// another. Presses without releases in between are closer together than anyone types.
bool QtLocalKeyMonitor::isRepeated(const QKeyEvent& event)
{
    constexpr quint64 minTypingIntervalMs = 100;
    const auto last = std::exchange(m_lastKey, LastKey{event.key(), event.timestamp()});
    if (event.isAutoRepeat() || !last || last->key != event.key())
        return event.isAutoRepeat();
    return last->released ? *last->released == event.timestamp()
                          : event.timestamp() - last->pressed < minTypingIntervalMs;
}

bool QtLocalKeyMonitor::isTaken(const QObject& receiver, const QKeyEvent& event)
{
    if (isNewPress(receiver, event)) {
        m_verdict = Verdict{event.timestamp(), event.key()};
        // A handler may run an event loop in which other keys are pressed.
        const bool taken = m_registry.notify(
            KeyPress{static_cast<Qt::Key>(event.key()), event.modifiers(), isRepeated(event)});
        m_verdict = Verdict{event.timestamp(), event.key(), false, taken};
    }
    if (event.type() == QEvent::KeyPress)
        m_verdict->pressed = true;
    return m_verdict->taken;
}

} // namespace driftbox
