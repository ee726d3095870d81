#pragma once

#include "platform/FloatingSurface.h"
#include "platform/x11/windows/X11WindowManager.h"

#include <QtCore/QMargins>

#include <xcb/xcb.h>

namespace driftbox {

class X11Connection;

/// Window manager hints that make a toolkit window float: above the others, on all desktops and in
/// no window list; plus those for windows whose frame is drawn by the program. Main thread only.
class X11FloatingHints
{
public:
    /// Round trip. `connection` and the toolkit's window `window` must outlive this.
    X11FloatingHints(X11Connection& connection, xcb_window_t window, FloatingSurface::Role role);

    /// To be called before each mapping: window managers remove the hints when a window is
    /// withdrawn.
    void put() const;

    /// Declares the outer margins of the window that contain only its shadow.
    void putFrameExtents(const QMargins& pixels) const;

    /// Sends the hints to a window manager that started while the window was mapped.
    void repeat() const;

private:
    void putAtoms(const char* property, std::initializer_list<const char*> names) const;

    X11Connection& m_connection;
    X11WindowManager m_windowManager;
    xcb_window_t m_window;
    FloatingSurface::Role m_role;
};

} // namespace driftbox
