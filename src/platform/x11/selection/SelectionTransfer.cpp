#include "platform/x11/selection/SelectionTransfer.h"

#include "platform/Clock.h"
#include "platform/selection/ByteSizes.h"
#include "platform/x11/connection/X11Connection.h"

#include <cstring>
#include <utility>

namespace driftbox {

namespace {

// Values are read in pieces so that no piece blocks the event loop.
constexpr qsizetype pieceSize = mebibyte;

constexpr auto transferProperty = "_DRIFTBOX_TRANSFER";

} // namespace

SelectionTransfer::SelectionTransfer(X11Connection& connection, Clock& clock,
                                     const Request& request, std::function<void(Result)> done)
    : m_connection(connection)
    , m_request(request)
    , m_property(connection.atom(transferProperty))
    , m_incremental(connection.atom("INCR"))
    , m_done(std::move(done))
{
    connect(&connection, &X11Connection::eventReceived, this, &SelectionTransfer::handleEvent);
    xcb_convert_selection(connection.xcb(), request.requestor, request.selection, request.target,
                          m_property, request.time);
    clock.after(deadline, this, [this] { finish(Outcome::timedOut); });
}

void SelectionTransfer::handleEvent(const xcb_generic_event_t& event)
{
    // Answers are sent by the owner and have the send-event bit set; property changes come from the
    // server.
    if ((event.response_type & 0x7f) == XCB_SELECTION_NOTIFY)
        handleAnswer(reinterpret_cast<const xcb_selection_notify_event_t&>(event));
    if (event.response_type != XCB_PROPERTY_NOTIFY)
        return;
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (change.window == m_request.requestor && change.atom == m_property &&
        change.state == XCB_PROPERTY_NEW_VALUE)
        handleNewValue();
}

void SelectionTransfer::handleAnswer(const xcb_selection_notify_event_t& answer)
{
    if (m_state != State::asked || answer.requestor != m_request.requestor ||
        answer.selection != m_request.selection || answer.target != m_request.target)
        return;
    if (answer.property == XCB_ATOM_NONE)
        finish(Outcome::refused);
    else if (answer.property != m_property)
        finish(Outcome::malformed);
    else
        readValue();
}

void SelectionTransfer::handleNewValue()
{
    m_hasNewValue = true;
    if (m_state == State::awaitingIncrement)
        readValue();
}

void SelectionTransfer::readValue()
{
    m_state = State::reading;
    m_hasNewValue = false;
    m_valueSize = 0;
    readPiece();
}

void SelectionTransfer::readPiece()
{
    // The server deletes the property with the last piece, which requests the next increment.
    const auto cookie = xcb_get_property(
        m_connection.xcb(), true, m_request.requestor, m_property, XCB_GET_PROPERTY_TYPE_ANY,
        static_cast<std::uint32_t>(m_valueSize / 4), static_cast<std::uint32_t>(pieceSize / 4));
    m_connection.whenReplied<xcb_get_property_reply_t>(
        cookie.sequence, this,
        [this](const xcb_get_property_reply_t* piece) { handlePiece(piece); });
}

void SelectionTransfer::handlePiece(const xcb_get_property_reply_t* piece)
{
    if (m_state != State::reading)
        return;
    if (piece == nullptr)
        return finish(Outcome::malformed);
    if (piece->type == XCB_ATOM_NONE) // there is no such property
        return m_inIncrements ? awaitIncrement() : finish(Outcome::malformed);
    if (piece->type == m_incremental)
        return handleAnnouncement(*piece);

    const qsizetype size = xcb_get_property_value_length(piece);
    if (m_size == 0)
        m_format = piece->format;
    if (piece->format != m_format || (size == 0 && piece->bytes_after > 0))
        return finish(Outcome::malformed);
    if (m_size + size + static_cast<qsizetype>(piece->bytes_after) > m_request.limit)
        return finish(Outcome::tooLarge);
    if (size > 0)
        m_pieces.append(QByteArray(static_cast<const char*>(xcb_get_property_value(piece)), size));
    m_size += size;
    m_valueSize += size;
    if (piece->bytes_after > 0)
        readPiece();
    else
        handleEndOfValue();
}

void SelectionTransfer::handleAnnouncement(const xcb_get_property_reply_t& piece)
{
    if (m_inIncrements || m_valueSize > 0)
        return finish(Outcome::malformed);
    // The announced size is a lower bound and used for this check only.
    std::uint32_t announced = 0;
    if (piece.format == 32 && xcb_get_property_value_length(&piece) >= int(sizeof announced))
        std::memcpy(&announced, xcb_get_property_value(&piece), sizeof announced);
    if (announced > m_request.limit)
        return finish(Outcome::tooLarge);
    m_inIncrements = true;
    awaitIncrement();
}

void SelectionTransfer::handleEndOfValue()
{
    if (m_inIncrements && m_valueSize > 0)
        awaitIncrement();
    else
        finish(Outcome::complete);
}

void SelectionTransfer::awaitIncrement()
{
    m_state = State::awaitingIncrement;
    if (m_hasNewValue)
        readValue();
    else if (m_hasOwnerVanished)
        finish(Outcome::refused);
}

void SelectionTransfer::ownerHasVanished()
{
    // Everything it sent has been received before this call.
    m_hasOwnerVanished = true;
    if (m_state == State::asked || m_state == State::awaitingIncrement)
        finish(Outcome::refused);
}

void SelectionTransfer::finish(Outcome outcome)
{
    if (m_state == State::finished)
        return;
    m_state = State::finished;
    Result result{outcome, {}, m_format};
    if (outcome == Outcome::complete)
        result.pieces = std::move(m_pieces);
    m_pieces.clear();
    const auto done = std::move(m_done);
    done(std::move(result)); // may destroy this
}

} // namespace driftbox
