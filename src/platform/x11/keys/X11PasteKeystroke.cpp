#include "platform/x11/keys/X11PasteKeystroke.h"

#include "platform/x11/selection/PrimarySelection.h"

#include <chrono>

#include <QtCore/QLoggingCategory>
#include <QtCore/QTimer>

using namespace std::chrono_literals;

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(x11PasteKeystrokeLog, "X11PasteKeystroke")

constexpr auto focusTimeout = 600ms;
constexpr auto focusPollInterval = 10ms;

void logRefusal(const char* reason)
{
    qCWarning(x11PasteKeystrokeLog).noquote().nospace() << "Paste keystroke not sent: " << reason;
}

} // namespace

X11PasteKeystroke::X11PasteKeystroke(X11Connection& connection, const X11Keyboard& keyboard,
                                     PrimarySelection& primarySelection)
    : m_synthesizer(connection, keyboard)
    , m_primarySelection(primarySelection)
{
}

void X11PasteKeystroke::send(std::shared_ptr<RunningApplication> target)
{
    ++m_generation;
    m_target = std::move(target);
    m_shortcut = pasteShortcutOf(m_target->bundleIdentifier().value_or(QString()));
    m_deadline = QDeadlineTimer(focusTimeout, Qt::PreciseTimer);
    if (m_shortcut == PasteShortcut::shiftInsert) {
        m_primarySelection.offerPasteboardText(
            this, [this, generation = m_generation] { typeOnceFocused(generation); });
    } else {
        typeOnceFocused(m_generation);
    }
}

void X11PasteKeystroke::typeOnceFocused(std::uint64_t generation)
{
    if (generation != m_generation)
        return;
    m_target->whenFocusKnown(this, [this, generation](RunningApplication::Focus focus) {
        if (generation == m_generation)
            proceed(focus);
    });
}

void X11PasteKeystroke::proceed(RunningApplication::Focus focus)
{
    switch (focus) {
    case RunningApplication::Focus::inside:
        return type();
    case RunningApplication::Focus::gone:
        return giveUp("the target has gone");
    case RunningApplication::Focus::outside:
        break;
    }
    if (m_deadline.hasExpired())
        return giveUp("the target did not get the keyboard");
    QTimer::singleShot(focusPollInterval, Qt::PreciseTimer, this,
                       [this, generation = m_generation] { typeOnceFocused(generation); });
}

void X11PasteKeystroke::type()
{
    m_target.reset();
    m_synthesizer.type(m_shortcut, [](bool isTyped) {
        if (!isTyped)
            logRefusal("the keyboard lacks a key");
    });
}

void X11PasteKeystroke::giveUp(const char* reason)
{
    logRefusal(reason);
    m_target.reset();
}

} // namespace driftbox
