#include "platform/x11/windows/X11Compositing.h"

namespace driftbox {

X11Compositing::X11Compositing(X11Connection& connection)
    : m_selection(connection, "_NET_WM_CM_S")
{
    connect(&m_selection, &X11ManagerSelection::ownedChanged, this, &X11Compositing::changed);
}

} // namespace driftbox
