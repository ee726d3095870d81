#include "platform/x11/keys/X11PasteKeystroke.h"

#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/connection/X11Reply.h"
#include "platform/x11/selection/PrimarySelection.h"
#include "platform/x11/windows/X11RunningApplication.h"

#include <chrono>

#include <QtCore/QLoggingCategory>
#include <QtCore/QTimer>

using namespace std::chrono_literals;

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(x11PasteKeystrokeLog, "X11PasteKeystroke")

constexpr auto patience = 600ms;
constexpr auto pause = 10ms; // between two looks at who has the keyboard

} // namespace

X11PasteKeystroke::X11PasteKeystroke(X11Connection& connection, const X11Keyboard& keyboard,
                                     PrimarySelection& primarySelection)
    : m_connection(connection)
    , m_typist(connection, keyboard)
    , m_primarySelection(primarySelection)
{
}

void X11PasteKeystroke::send(std::shared_ptr<RunningApplication> target)
{
    ++m_generation;
    m_target = std::dynamic_pointer_cast<X11RunningApplication>(std::move(target));
    if (!m_target) {
        qCWarning(x11PasteKeystrokeLog).noquote()
            << "Paste keystroke not sent: the target has no window";
        return;
    }
    m_shortcut = pasteShortcutOf(m_target->bundleIdentifier().value_or(QString()));
    m_deadline = QDeadlineTimer(patience, Qt::PreciseTimer);
    const auto proceed = [this, generation = m_generation] { typeOnceFocused(generation); };
    if (m_shortcut == PasteShortcut::shiftInsert)
        m_primarySelection.offerPasteboardText(this, proceed);
    else
        QTimer::singleShot(0, this, proceed);
}

void X11PasteKeystroke::typeOnceFocused(std::uint64_t generation)
{
    if (generation != m_generation || !m_target)
        return;
    if (m_target->isTerminated()) {
        giveUp("the target has gone");
    } else if (hasKeyboard(*m_target)) {
        if (m_typist.type(m_shortcut))
            m_target.reset();
        else
            giveUp("the keyboard lacks a key");
    } else if (m_deadline.hasExpired()) {
        giveUp("the target did not get the keyboard");
    } else {
        QTimer::singleShot(pause, Qt::PreciseTimer, this,
                           [this, generation] { typeOnceFocused(generation); });
    }
}

void X11PasteKeystroke::giveUp(const char* reason)
{
    qCWarning(x11PasteKeystrokeLog).noquote().nospace() << "Paste keystroke not sent: " << reason;
    m_target.reset();
}

// Toolkits may keep the focus in a child of their window.
bool X11PasteKeystroke::hasKeyboard(const X11RunningApplication& target) const
{
    xcb_connection_t* xcb = m_connection.xcb();
    const X11Reply<xcb_get_input_focus_reply_t> focus(
        xcb_get_input_focus_reply(xcb, xcb_get_input_focus(xcb), nullptr));
    xcb_window_t window = focus ? focus->focus : XCB_NONE;
    while (window > XCB_INPUT_FOCUS_POINTER_ROOT && window != m_connection.root()) {
        if (window == target.window())
            return true;
        const X11Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(xcb, xcb_query_tree(xcb, window), nullptr));
        window = tree ? tree->parent : XCB_NONE;
    }
    return false;
}

} // namespace driftbox
