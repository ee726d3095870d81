#include "platform/x11/windows/X11SystemTray.h"

namespace driftbox {

X11SystemTray::X11SystemTray(X11Connection& connection, QObject* parent)
    : StatusArea(parent)
    , m_connection(connection)
{
}

void X11SystemTray::watch()
{
    if (m_selection)
        return;
    m_selection = std::make_unique<X11ManagerSelection>(m_connection, "_NET_SYSTEM_TRAY_S");
    connect(m_selection.get(), &X11ManagerSelection::ownedChanged, this,
            &X11SystemTray::setAvailable);
    setAvailable(m_selection->isOwned());
}

} // namespace driftbox
