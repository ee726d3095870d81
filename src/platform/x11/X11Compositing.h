#pragma once

#include <cstdint>
#include <optional>

#include <QtCore/QObject>

#include <xcb/xcb.h>

namespace driftbox {

class X11Connection;

/// Whether a compositing manager blends the windows of the screen; they come and go. Main thread
/// only.
class X11Compositing final : public QObject
{
    Q_OBJECT

public:
    /// Round trips. `connection` must outlive this.
    explicit X11Compositing(X11Connection& connection);

    [[nodiscard]] bool isActive() const { return m_isActive; }

Q_SIGNALS:
    void changed(bool active);

private:
    void handleEvent(const xcb_generic_event_t& event);

    xcb_atom_t m_selection;
    std::optional<std::uint8_t> m_firstEvent;
    bool m_isActive = false;
};

} // namespace driftbox
