#include "platform/x11/connection/QtXcb.h"

#include <cstdint>

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

// Private: no public call tells the toolkit when the user last acted.
#include <qpa/qplatformnativeinterface.h>

namespace driftbox::QtXcb {
namespace {

/// Round trip.
xcb_timestamp_t serverTime()
{
    // The time stamp itself is returned in the pointer.
    void* time = QGuiApplication::platformNativeInterface()->nativeResourceForScreen(
        "gettimestamp", QGuiApplication::primaryScreen());
    return static_cast<xcb_timestamp_t>(reinterpret_cast<std::uintptr_t>(time));
}

void setUserTime(xcb_timestamp_t time)
{
    using SetTime = void (*)(QScreen*, xcb_timestamp_t);
    auto* const resource =
        QGuiApplication::platformNativeInterface()->nativeResourceFunctionForScreen("setapptime");
    if (const auto setTime = reinterpret_cast<SetTime>(reinterpret_cast<void*>(resource)))
        setTime(QGuiApplication::primaryScreen(), time);
}

} // namespace

xcb_connection_t* connection()
{
    return qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
}

xcb_timestamp_t noteUserAction()
{
    const xcb_timestamp_t now = serverTime();
    setUserTime(now);
    return now;
}

} // namespace driftbox::QtXcb
