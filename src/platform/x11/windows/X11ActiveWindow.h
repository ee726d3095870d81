#pragma once

#include "platform/ActiveWindow.h"

#include <xcb/xcb.h>

namespace driftbox {

class X11Connection;

/// The active window as announced by the window manager. Main thread only; blocks on the server
/// only at construction.
class X11ActiveWindow final : public ActiveWindow
{
public:
    /// `connection` must outlive this.
    explicit X11ActiveWindow(X11Connection& connection);

    void deviceFrame(QObject* owner, Answer answer) override;

private:
    void frameOf(xcb_window_t window, QObject* owner, const Answer& answer);

    X11Connection& m_connection;
    xcb_atom_t m_activeWindowAtom;
};

} // namespace driftbox
