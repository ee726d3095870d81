#include "platform/x11/windows/X11FloatingHints.h"

#include "platform/x11/connection/QtXcb.h"
#include "platform/x11/connection/X11Connection.h"

#include <array>
#include <vector>

#include <QtCore/QByteArrayView>

namespace driftbox {

namespace {

namespace Name {
constexpr auto windowType = "_NET_WM_WINDOW_TYPE";
constexpr auto utility = "_NET_WM_WINDOW_TYPE_UTILITY";
constexpr auto normal = "_NET_WM_WINDOW_TYPE_NORMAL";
constexpr auto state = "_NET_WM_STATE";
constexpr auto above = "_NET_WM_STATE_ABOVE";
constexpr auto sticky = "_NET_WM_STATE_STICKY";
constexpr auto skipTaskbar = "_NET_WM_STATE_SKIP_TASKBAR";
constexpr auto skipPager = "_NET_WM_STATE_SKIP_PAGER";
constexpr auto skipSwitcher = "_KDE_NET_WM_STATE_SKIP_SWITCHER";
constexpr auto desktop = "_NET_WM_DESKTOP";
constexpr auto windowRole = "WM_WINDOW_ROLE";
constexpr auto frameExtents = "_GTK_FRAME_EXTENTS"; // despite its name not specific to GTK
} // namespace Name

constexpr std::uint32_t allDesktops = 0xffff'ffff;
constexpr std::uint32_t add = 1;
constexpr std::uint32_t sourceIsApplication = 1;

QByteArrayView nameOf(FloatingSurface::Role role)
{
    switch (role) {
    case FloatingSurface::Role::panel:
        return "panel";
    case FloatingSurface::Role::note:
        return "note";
    case FloatingSurface::Role::ordinary:
        return "window";
    }
    Q_UNREACHABLE();
}

} // namespace

X11FloatingHints::X11FloatingHints(X11Connection& connection, xcb_window_t window,
                                   FloatingSurface::Role role)
    : m_connection(connection)
    , m_windowManager(connection, QtXcb::connection())
    , m_window(window)
    , m_role(role)
{
    using namespace Name;
    const char* const names[] = {windowType,   utility, normal,      state,
                                 above,        sticky,  skipTaskbar, skipPager,
                                 skipSwitcher, desktop, windowRole,  frameExtents};
    connection.intern(names);
}

void X11FloatingHints::put() const
{
    if (m_role == FloatingSurface::Role::ordinary) {
        putAtoms(Name::windowType, {Name::normal});
    } else {
        putAtoms(Name::windowType, {Name::utility});
        putAtoms(Name::state, {Name::above, Name::sticky, Name::skipTaskbar, Name::skipPager,
                               Name::skipSwitcher});
        xcb_change_property(QtXcb::connection(), XCB_PROP_MODE_REPLACE, m_window,
                            m_connection.atom(Name::desktop), XCB_ATOM_CARDINAL, 32, 1,
                            &allDesktops);
    }
    const QByteArrayView role = nameOf(m_role);
    xcb_change_property(QtXcb::connection(), XCB_PROP_MODE_REPLACE, m_window,
                        m_connection.atom(Name::windowRole), XCB_ATOM_STRING, 8,
                        static_cast<std::uint32_t>(role.size()), role.data());
}

void X11FloatingHints::putFrameExtents(const QMargins& pixels) const
{
    const std::array extents{
        static_cast<std::uint32_t>(pixels.left()), static_cast<std::uint32_t>(pixels.right()),
        static_cast<std::uint32_t>(pixels.top()), static_cast<std::uint32_t>(pixels.bottom())};
    xcb_change_property(QtXcb::connection(), XCB_PROP_MODE_REPLACE, m_window,
                        m_connection.atom(Name::frameExtents), XCB_ATOM_CARDINAL, 32,
                        extents.size(), extents.data());
}

void X11FloatingHints::repeat() const
{
    if (m_role == FloatingSurface::Role::ordinary)
        return;
    const auto addStates = [this](const char* first, const char* second) {
        m_windowManager.send(
            m_window, Name::state,
            {add, m_connection.atom(first), m_connection.atom(second), sourceIsApplication});
    };
    addStates(Name::above, Name::sticky);
    addStates(Name::skipTaskbar, Name::skipPager);
    m_windowManager.send(m_window, Name::desktop, {allDesktops, sourceIsApplication});
}

void X11FloatingHints::putAtoms(const char* property,
                                std::initializer_list<const char*> names) const
{
    std::vector<xcb_atom_t> atoms;
    for (const char* name : names)
        atoms.push_back(m_connection.atom(name));
    xcb_change_property(QtXcb::connection(), XCB_PROP_MODE_REPLACE, m_window,
                        m_connection.atom(property), XCB_ATOM_ATOM, 32,
                        static_cast<std::uint32_t>(atoms.size()), atoms.data());
}

} // namespace driftbox
