#pragma once

#include "platform/Workspace.h"
#include "platform/x11/windows/X11WindowManager.h"

#include <QtCore/QObject>

#include <xcb/xcb.h>

namespace driftbox {

class X11Connection;
class X11RunningApplication;

/// The application of the window manager's active window or, without a window manager, of the
/// focused window. This program's own floating windows do not count: while one of them has the
/// focus, the previous application stays frontmost. Main thread only.
class X11Workspace final : public QObject, public Workspace
{
public:
    /// Round trips. `connection` must outlive the workspace and every application it hands out.
    explicit X11Workspace(X11Connection& connection);

    /// Round trips.
    [[nodiscard]] std::shared_ptr<RunningApplication> frontmostApplication() const override;

private:
    void handleEvent(const xcb_generic_event_t& event);
    [[nodiscard]] xcb_window_t frontmostWindow() const;
    [[nodiscard]] xcb_window_t windowWithKeyboard() const;

    X11Connection& m_connection;
    X11WindowManager m_windowManager;
    xcb_atom_t m_activeWindowProperty;
    /// Excludes this program's floating windows; also updated by queries.
    mutable xcb_window_t m_lastActive = XCB_NONE;
};

} // namespace driftbox
