#pragma once

#include <cstdint>
#include <optional>

#include <QtCore/QByteArray>
#include <QtCore/QObject>

#include <xcb/xcb.h>

namespace driftbox {

class X11Connection;

/// A manager selection, by which a program claims a service for the whole screen. Its owner may
/// appear and disappear at any time. Main thread only.
class X11ManagerSelection final : public QObject
{
    Q_OBJECT

public:
    /// The screen number is appended to `prefix`. Round trips. `connection` must outlive this.
    X11ManagerSelection(X11Connection& connection, const QByteArray& prefix);

    [[nodiscard]] bool isOwned() const { return m_isOwned; }

Q_SIGNALS:
    void ownedChanged(bool owned);

private:
    void handleEvent(const xcb_generic_event_t& event);

    xcb_atom_t m_selection;
    std::optional<std::uint8_t> m_firstEvent;
    bool m_isOwned = false;
};

} // namespace driftbox
