#pragma once

#include "platform/FloatingSurface.h"
#include "platform/x11/windows/X11Compositing.h"

#include <vector>

#include <QtCore/QAbstractNativeEventFilter>

#include <xcb/xcb.h>

namespace driftbox {

class X11Connection;
class X11FloatingSurface;

/// Creates the program's floating windows on X11. Main thread only.
class X11FloatingSurfaceFactory final : public FloatingSurfaceFactory,
                                        public QAbstractNativeEventFilter
{
public:
    /// Round trips. The application object must run on X11. `connection` must outlive this, and
    /// this must outlive its surfaces.
    explicit X11FloatingSurfaceFactory(X11Connection& connection);
    ~X11FloatingSurfaceFactory() override;

    [[nodiscard]] std::unique_ptr<FloatingSurface> adopt(QWindow& window,
                                                         FloatingSurface::Role role) override;

    [[nodiscard]] bool nativeEventFilter(const QByteArray& eventType, void* message,
                                         qintptr* result) override;

private:
    [[nodiscard]] X11FloatingSurface* surfaceOf(xcb_window_t window) const;

    X11Connection& m_connection;
    X11Compositing m_compositing;
    xcb_atom_t m_windowManagerProperty;
    std::vector<X11FloatingSurface*> m_surfaces;
};

} // namespace driftbox
