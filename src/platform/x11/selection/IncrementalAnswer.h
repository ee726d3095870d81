#pragma once

#include "platform/selection/OfferedContent.h"

#include <chrono>
#include <functional>
#include <memory>

#include <QtCore/QObject>

#include <xcb/xcb.h>

namespace driftbox {

class Clock;
class X11Connection;

/// Transfers an answer that is too large for one property to a requestor in increments. Main thread
/// only. The transfer ends when everything has been taken, when the requestor's window is
/// destroyed, or when the requestor has taken nothing for a while.
class IncrementalAnswer final : public QObject
{
public:
    struct Destination
    {
        xcb_window_t requestor;
        xcb_atom_t property;
        xcb_atom_t type;
    };

    /// The time after which an idle requestor is given up.
    static constexpr std::chrono::seconds idleTimeout{10};

    /// Announces the transfer; the caller notifies the requestor. `ended` is called once, from the
    /// event loop, and may destroy this object.
    IncrementalAnswer(X11Connection& connection, Clock& clock, const Destination& destination,
                      std::unique_ptr<ByteStream> bytes, std::function<void()> ended);

    [[nodiscard]] xcb_window_t requestor() const { return m_destination.requestor; }

    /// The maximum number of bytes in one property.
    [[nodiscard]] static qsizetype maxIncrement(const X11Connection& connection);

private:
    void handleEvent(const xcb_generic_event_t& event);
    void sendNext();
    void watchProgress();
    void end();

    X11Connection& m_connection;
    Clock& m_clock;
    const Destination m_destination;
    std::unique_ptr<ByteStream> m_bytes;
    std::function<void()> m_ended;
    bool m_hasSentEnd = false;
    bool m_hasProgressed = false;
};

} // namespace driftbox
