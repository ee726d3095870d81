#include "platform/wayland/connection/WaylandConnection.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include <QtCore/QLoggingCategory>
#include <QtCore/QSocketNotifier>

#include <wayland-client-protocol.h>

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(waylandConnectionLog, "WaylandConnection")

} // namespace

std::unique_ptr<WaylandConnection> WaylandConnection::open()
{
    wl_display* display = wl_display_connect(nullptr);
    if (display == nullptr)
        return nullptr;
    std::unique_ptr<WaylandConnection> connection(new WaylandConnection(display));
    connection->listGlobals();
    return connection->isOpen() ? std::move(connection) : nullptr;
}

WaylandConnection::WaylandConnection(wl_display* display)
    : m_display(display)
    , m_readable(new QSocketNotifier(wl_display_get_fd(display), QSocketNotifier::Read, this))
    , m_writable(new QSocketNotifier(wl_display_get_fd(display), QSocketNotifier::Write, this))
{
    m_writable->setEnabled(false);
    connect(m_readable, &QSocketNotifier::activated, this, &WaylandConnection::deliver);
    connect(m_writable, &QSocketNotifier::activated, this, &WaylandConnection::flush);
}

WaylandConnection::~WaylandConnection()
{
    m_readable->setEnabled(false); // before their descriptor is closed
    m_writable->setEnabled(false);
    wl_registry_destroy(m_registry);
    wl_display_disconnect(m_display);
}

void WaylandConnection::listGlobals()
{
    static const wl_registry_listener listener{
        .global =
            [](void* data, wl_registry*, std::uint32_t name, const char* interface,
               std::uint32_t version) {
                static_cast<WaylandConnection*>(data)->m_globals.push_back(
                    {name, interface, version});
            },
        .global_remove =
            [](void* data, wl_registry*, std::uint32_t name) {
                std::erase_if(static_cast<WaylandConnection*>(data)->m_globals,
                              [name](const Global& global) { return global.name == name; });
            }};
    m_registry = wl_display_get_registry(m_display);
    wl_registry_add_listener(m_registry, &listener, this);
    if (wl_display_roundtrip(m_display) < 0)
        m_isOpen = false;
}

void* WaylandConnection::bindGlobal(const wl_interface& interface, std::uint32_t minVersion,
                                    std::uint32_t maxVersion)
{
    const auto global = std::ranges::find_if(m_globals, [&](const Global& each) {
        return each.interface == interface.name && each.version >= minVersion;
    });
    if (global == m_globals.end())
        return nullptr;
    return wl_registry_bind(m_registry, global->name, &interface,
                            std::min(global->version, maxVersion));
}

void WaylandConnection::flush()
{
    if (!m_isOpen)
        return;
    const bool isSent = wl_display_flush(m_display) >= 0;
    if (!isSent && errno != EAGAIN)
        return close();
    m_writable->setEnabled(!isSent);
}

void WaylandConnection::deliver()
{
    while (wl_display_prepare_read(m_display) != 0)
        wl_display_dispatch_pending(m_display);
    if (wl_display_read_events(m_display) < 0 || wl_display_dispatch_pending(m_display) < 0)
        return close();
    flush();
}

void WaylandConnection::close()
{
    if (!std::exchange(m_isOpen, false))
        return;
    m_readable->setEnabled(false);
    m_writable->setEnabled(false);
    qCCritical(waylandConnectionLog).noquote() << "The compositor has closed the connection";
}

} // namespace driftbox
