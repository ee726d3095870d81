#include "platform/x11/selection/IncrementalAnswer.h"

#include "platform/Clock.h"
#include "platform/selection/ByteSizes.h"
#include "platform/x11/connection/X11Connection.h"

#include <algorithm>

namespace driftbox {

namespace {

constexpr qsizetype wantedIncrement = 256 * kibibyte;
constexpr qsizetype requestOverhead = 64;

} // namespace

qsizetype IncrementalAnswer::maxIncrement(const X11Connection& connection)
{
    const qsizetype request =
        4 * qsizetype(xcb_get_setup(connection.xcb())->maximum_request_length);
    return std::min(wantedIncrement, request - requestOverhead);
}

IncrementalAnswer::IncrementalAnswer(X11Connection& connection, Clock& clock,
                                     const Destination& destination,
                                     std::unique_ptr<ByteStream> bytes, std::function<void()> ended)
    : m_connection(connection)
    , m_clock(clock)
    , m_destination(destination)
    , m_bytes(std::move(bytes))
    , m_ended(std::move(ended))
{
    connect(&connection, &X11Connection::eventReceived, this, &IncrementalAnswer::handleEvent);
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection.xcb(), destination.requestor, XCB_CW_EVENT_MASK,
                                 &events);
    const auto minBytes = static_cast<std::uint32_t>(m_bytes->minRemaining());
    xcb_change_property(connection.xcb(), XCB_PROP_MODE_REPLACE, destination.requestor,
                        destination.property, connection.atom("INCR"), 32, 1, &minBytes);
    watchProgress();
}

void IncrementalAnswer::handleEvent(const xcb_generic_event_t& event)
{
    if (event.response_type == XCB_DESTROY_NOTIFY) {
        const auto& gone = reinterpret_cast<const xcb_destroy_notify_event_t&>(event);
        if (gone.window == m_destination.requestor)
            end();
    } else if (event.response_type == XCB_PROPERTY_NOTIFY) {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (change.window == m_destination.requestor && change.atom == m_destination.property &&
            change.state == XCB_PROPERTY_DELETE)
            sendNext();
    }
}

void IncrementalAnswer::sendNext()
{
    m_hasProgressed = true;
    if (m_hasSentEnd)
        return end();
    const QByteArray part = m_bytes->next(maxIncrement(m_connection));
    m_hasSentEnd = part.isEmpty();
    xcb_change_property(m_connection.xcb(), XCB_PROP_MODE_REPLACE, m_destination.requestor,
                        m_destination.property, m_destination.type, 8,
                        static_cast<std::uint32_t>(part.size()), part.constData());
}

void IncrementalAnswer::watchProgress()
{
    m_clock.after(idleTimeout, this, [this] {
        if (!m_hasProgressed)
            return end();
        m_hasProgressed = false;
        watchProgress();
    });
}

void IncrementalAnswer::end()
{
    disconnect(&m_connection, nullptr, this, nullptr);
    const auto ended = std::move(m_ended);
    ended(); // destroys this
}

} // namespace driftbox
