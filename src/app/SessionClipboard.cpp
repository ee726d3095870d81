#include "app/SessionClipboard.h"

#include "platform/wayland/clipboard/ClipboardThread.h"
#include "platform/wayland/clipboard/WaylandPasteboard.h"
#include "platform/wayland/clipboard/WaylandSelectedText.h"
#include "platform/x11/selection/X11SelectedText.h"

#include <QtCore/QLoggingCategory>

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(sessionClipboardLog, "SessionClipboard")

} // namespace

SessionClipboard::SessionClipboard(X11Connection& connection, Clock& clock, TaskRunner& taskRunner)
{
    // Without a compositor in the environment none is looked for.
    if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        m_thread = ClipboardThread::start();
    if (m_thread) {
        qCInfo(sessionClipboardLog).noquote() << "Using the compositor's clipboard";
        m_pasteboard = std::make_unique<WaylandPasteboard>(*m_thread, taskRunner);
        m_selectedText = std::make_unique<WaylandSelectedText>(*m_thread, taskRunner);
        return;
    }
    auto pasteboard = std::make_unique<X11Pasteboard>(connection, clock, taskRunner);
    m_x11Pasteboard = pasteboard.get();
    m_pasteboard = std::move(pasteboard);
    m_selectedText = std::make_unique<X11SelectedText>(connection, clock, taskRunner);
}

SessionClipboard::~SessionClipboard() = default;

void SessionClipboard::handOver()
{
    if (m_x11Pasteboard != nullptr)
        m_x11Pasteboard->handOver();
}

} // namespace driftbox
