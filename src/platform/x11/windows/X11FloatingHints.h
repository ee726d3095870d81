#pragma once

#include "platform/FloatingSurface.h"
#include "platform/x11/windows/X11WindowManager.h"

#include <QtCore/QMargins>

#include <xcb/xcb.h>

namespace driftbox {

class X11Connection;

/// What makes a window of the toolkit float for the window manager: above the others, on all
/// desktops, in no list of windows; and what else it need know of one that is drawn as a whole by
/// the program. Main thread only.
class X11FloatingHints
{
public:
    /// Round trip. Both must outlive the hints; the window is one of the toolkit's.
    X11FloatingHints(X11Connection& connection, xcb_window_t window, FloatingSurface::Role role);

    /// To be called before each mapping: window managers take them off a window that goes away.
    void put() const;

    /// What of the window, at its edges, is only its shadow.
    void putFrameExtents(const QMargins& pixels) const;

    /// Tells a window manager that has come while the window was mapped.
    void repeat() const;

private:
    void putAtoms(const char* property, std::initializer_list<const char*> names) const;

    X11Connection& m_connection;
    X11WindowManager m_windowManager;
    xcb_window_t m_window;
    FloatingSurface::Role m_role;
};

} // namespace driftbox
