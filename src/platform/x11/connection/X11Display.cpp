#include "platform/x11/connection/X11Display.h"

#include "platform/x11/connection/X11Connection.h"

#include <cstdio>

#include <QtCore/QByteArray>
#include <QtCore/QLoggingCategory>

namespace driftbox::X11Display {

namespace {

Q_LOGGING_CATEGORY(x11DisplayLog, "X11Display")

constexpr auto platformVariable = "QT_QPA_PLATFORM";

bool isX11(const QByteArray& platform)
{
    return platform == "xcb" || platform.startsWith("xcb:");
}

} // namespace

bool choose()
{
    if (!X11Connection::isServerThere()) {
        std::fprintf(stderr, "Drift Box needs a display: no X server answers at \"%s\"\n",
                     qgetenv("DISPLAY").constData());
        return false;
    }
    const QByteArray platform = qgetenv(platformVariable);
    if (isX11(platform))
        return true;
    if (!platform.isEmpty())
        qCWarning(x11DisplayLog).noquote() << "Using xcb instead of" << platform;
    qputenv(platformVariable, "xcb");
    return true;
}

} // namespace driftbox::X11Display
