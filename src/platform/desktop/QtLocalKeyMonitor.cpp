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
        // The filter that was installed last comes first.
        QCoreApplication::instance()->installEventFilter(this);
        return !belongsToCopy(*event) && take(*receiver, *event);
    case QEvent::KeyPress:
        m_lastWasCopy = !event->spontaneous();
        return !m_lastWasCopy && take(*receiver, *event);
    case QEvent::KeyRelease:
        m_verdict.reset();
        noteRelease(static_cast<const QKeyEvent&>(*event));
        return false;
    default:
        return false;
    }
}

// A copy has no time, nor has the question that the toolkit asks once more because of it.
bool QtLocalKeyMonitor::belongsToCopy(const QEvent& question) const
{
    return m_lastWasCopy && static_cast<const QKeyEvent&>(question).timestamp() == 0;
}

bool QtLocalKeyMonitor::take(const QObject& receiver, QEvent& event)
{
    if (!isTaken(receiver, static_cast<const QKeyEvent&>(event)))
        return false;
    // An accepted question keeps the toolkit from looking for a shortcut.
    event.accept();
    return true;
}

bool QtLocalKeyMonitor::isNewPress(const QObject& receiver, const QKeyEvent& event) const
{
    if (!m_verdict || m_verdict->timestamp != event.timestamp() || m_verdict->key != event.key())
        return true;
    // The press comes to a window first; a question never follows the press it belongs to.
    const bool opensASequence = event.type() == QEvent::ShortcutOverride || receiver.isWindowType();
    return m_verdict->pressed && opensASequence;
}

void QtLocalKeyMonitor::noteRelease(const QKeyEvent& event)
{
    if (m_lastKey && m_lastKey->key == event.key() && !event.isAutoRepeat())
        m_lastKey->released = event.timestamp();
}

// The toolkit overlooks repeated presses: on a busy machine it may see a release before the press
// that comes at the same time, and releases get lost while the keyboard goes from one window to
// another. Presses without them are closer together than anybody types.
bool QtLocalKeyMonitor::isRepeated(const QKeyEvent& event)
{
    constexpr quint64 closestTypingMs = 100;
    const auto last = std::exchange(m_lastKey, LastKey{event.key(), event.timestamp()});
    if (event.isAutoRepeat() || !last || last->key != event.key())
        return event.isAutoRepeat();
    return last->released ? *last->released == event.timestamp()
                          : event.timestamp() - last->pressed < closestTypingMs;
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
