#pragma once

#include "platform/x11/selection/X11Pasteboard.h"

#include <memory>

namespace driftbox {

class ClipboardThread;
class SelectedText;

/// The clipboard and the selected text of the session: the compositor's where it offers
/// data-control, otherwise the X server's, to which a Wayland compositor may pass on only what is
/// copied while an X11 window has the focus. Main thread only.
class SessionClipboard
{
public:
    /// All of them must outlive the clipboard.
    SessionClipboard(X11Connection& connection, Clock& clock, TaskRunner& taskRunner);
    ~SessionClipboard();
    Q_DISABLE_COPY_MOVE(SessionClipboard)

    [[nodiscard]] Pasteboard& pasteboard() const { return *m_pasteboard; }
    [[nodiscard]] SelectedText& selectedText() const { return *m_selectedText; }

    /// Hands this program's content over to the desktop's clipboard manager where that has to be
    /// asked. Call it before the program ends; takes at most 300 ms.
    void handOver();

private:
    std::unique_ptr<ClipboardThread> m_thread;
    std::unique_ptr<Pasteboard> m_pasteboard;
    std::unique_ptr<SelectedText> m_selectedText;
    X11Pasteboard* m_x11Pasteboard = nullptr; ///< the pasteboard, where it is the X server's
};

} // namespace driftbox
