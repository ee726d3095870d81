#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

#include <QtCore/QByteArrayList>
#include <QtCore/QObject>

#include <xcb/xcb.h>

namespace driftbox {

class Clock;
class X11Connection;

/// One target of a selection on its way from the owner to this program, in one piece or in
/// increments. Main thread only. Destroying it gives the transfer up.
class SelectionTransfer final : public QObject
{
public:
    struct Request
    {
        xcb_window_t requestor; ///< of this connection, reporting its property changes
        xcb_atom_t selection;
        xcb_atom_t target;
        xcb_timestamp_t time;
        qsizetype limit; ///< in bytes; more than that is not accepted
    };

    enum class Outcome : std::uint8_t {
        complete,
        refused, ///< the owner does not have the target, or there is no owner
        late,    ///< not complete within the deadline
        tooLarge,
        malformed, ///< the owner does not keep to the protocol
    };

    struct Result
    {
        Outcome outcome;
        QByteArrayList pieces;   ///< the bytes, in order; empty unless complete
        std::uint8_t format = 0; ///< bits of an element: 8, 16 or 32

        /// Whether the owner may still write to the requestor.
        [[nodiscard]] bool isAbandoned() const
        {
            return outcome != Outcome::complete && outcome != Outcome::refused;
        }
    };

    /// How long an owner has for one target, the last increment included.
    static constexpr std::chrono::milliseconds deadline{2'000};

    /// Asks at once. `done` is called once, from the event loop, and may destroy the transfer.
    SelectionTransfer(X11Connection& connection, Clock& clock, const Request& request,
                      std::function<void(Result)> done);

    /// Takes what the owner had handed over before it ended; what is incomplete counts as refused.
    /// May call `done`.
    void ownerHasVanished();

private:
    enum class State : std::uint8_t { asked, reading, awaitingIncrement, finished };

    void handleEvent(const xcb_generic_event_t& event);
    void handleAnswer(const xcb_selection_notify_event_t& answer);
    void handleNewValue();
    void readValue();
    void readPiece();
    void handlePiece(const xcb_get_property_reply_t* piece);
    void handleAnnouncement(const xcb_get_property_reply_t& piece);
    void handleEndOfValue();
    void awaitIncrement();
    void finish(Outcome outcome);

    X11Connection& m_connection;
    const Request m_request;
    const xcb_atom_t m_property;
    const xcb_atom_t m_incremental;
    std::function<void(Result)> m_done;
    State m_state = State::asked;
    bool m_inIncrements = false;
    bool m_hasOwnerVanished = false;
    bool m_hasNewValue = false; ///< written since the reading of the last value began
    qsizetype m_valueSize = 0;  ///< bytes read of the present value
    QByteArrayList m_pieces;    ///< joining a large one takes too long for the main thread
    qsizetype m_size = 0;       ///< of all pieces
    std::uint8_t m_format = 0;
};

} // namespace driftbox
