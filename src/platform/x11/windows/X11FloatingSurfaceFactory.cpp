#include "platform/x11/windows/X11FloatingSurfaceFactory.h"

#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/windows/X11FloatingSurface.h"

#include <algorithm>

#include <QtCore/QCoreApplication>

namespace driftbox {

X11FloatingSurfaceFactory::X11FloatingSurfaceFactory(X11Connection& connection)
    : m_connection(connection)
    , m_compositing(connection)
    , m_windowManagerProperty(connection.atom("_NET_SUPPORTING_WM_CHECK"))
{
    QCoreApplication::instance()->installNativeEventFilter(this);
}

X11FloatingSurfaceFactory::~X11FloatingSurfaceFactory()
{
    if (auto* application = QCoreApplication::instance())
        application->removeNativeEventFilter(this);
}

std::unique_ptr<FloatingSurface> X11FloatingSurfaceFactory::adopt(QWindow& window,
                                                                  FloatingSurface::Role role)
{
    auto surface = std::make_unique<X11FloatingSurface>(window, role, m_connection, m_compositing);
    m_surfaces.push_back(surface.get());
    QObject::connect(surface.get(), &QObject::destroyed, &m_compositing,
                     [this, gone = surface.get()] { std::erase(m_surfaces, gone); });
    return surface;
}

bool X11FloatingSurfaceFactory::nativeEventFilter(const QByteArray& eventType, void* message,
                                                  qintptr*)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    switch (event.response_type & 0x7f) {
    case XCB_FOCUS_IN:
    case XCB_FOCUS_OUT: {
        const auto& focus = reinterpret_cast<const xcb_focus_in_event_t&>(event);
        if (auto* surface = surfaceOf(focus.event))
            surface->handleFocusChange(focus);
        break;
    }
    case XCB_CONFIGURE_NOTIFY:
        if (auto* surface =
                surfaceOf(reinterpret_cast<const xcb_configure_notify_event_t&>(event).window))
            surface->handleConfigured();
        break;
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (change.atom == m_windowManagerProperty && change.window == m_connection.root() &&
            change.state == XCB_PROPERTY_NEW_VALUE)
            std::ranges::for_each(m_surfaces, &X11FloatingSurface::handleNewWindowManager);
        break;
    }
    default:
        break;
    }
    return false;
}

X11FloatingSurface* X11FloatingSurfaceFactory::surfaceOf(xcb_window_t window) const
{
    const auto found = std::ranges::find(m_surfaces, window, &X11FloatingSurface::window);
    return found != m_surfaces.end() ? *found : nullptr;
}

} // namespace driftbox
