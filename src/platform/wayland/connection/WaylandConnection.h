#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include <QtCore/QByteArray>
#include <QtCore/QObject>

#include <wayland-client-core.h>

QT_BEGIN_NAMESPACE
class QSocketNotifier;
QT_END_NAMESPACE

struct wl_registry;

namespace driftbox {

/// A connection of its own to the compositor that WAYLAND_DISPLAY names, besides the one that the
/// toolkit may have. Belongs to the thread that opens it, whose event loop delivers the events.
class WaylandConnection final : public QObject
{
public:
    /// Waits for one answer of the compositor, so that the globals are known. None when no
    /// compositor can be reached.
    [[nodiscard]] static std::unique_ptr<WaylandConnection> open();
    ~WaylandConnection() override;

    /// False once the compositor has gone or has ended the connection, which is logged once.
    [[nodiscard]] bool isOpen() const { return m_isOpen; }
    [[nodiscard]] wl_display* display() const { return m_display; }

    /// Binds the first global of that interface, at `maxVersion` or the compositor's own if that is
    /// older. Null when there is none, or none of at least `minVersion`. The caller destroys it.
    template <typename Proxy>
    [[nodiscard]] Proxy* bind(const wl_interface& interface, std::uint32_t minVersion,
                              std::uint32_t maxVersion)
    {
        return static_cast<Proxy*>(bindGlobal(interface, minVersion, maxVersion));
    }

    /// Sends what has been requested. Requests made by a handler of an event are sent anyway.
    void flush();

private:
    struct Global
    {
        std::uint32_t name;
        QByteArray interface;
        std::uint32_t version;
    };

    explicit WaylandConnection(wl_display* display);
    void listGlobals();
    [[nodiscard]] void* bindGlobal(const wl_interface& interface, std::uint32_t minVersion,
                                   std::uint32_t maxVersion);
    void deliver();
    void close();

    wl_display* const m_display;
    wl_registry* m_registry = nullptr;
    QSocketNotifier* m_readable;
    QSocketNotifier* m_writable; ///< enabled while the compositor reads too slowly
    std::vector<Global> m_globals;
    bool m_isOpen = true;
};

} // namespace driftbox
