#pragma once

#include "platform/selection/FormatTransfer.h"

#include <chrono>
#include <cstdint>
#include <functional>

#include <QtCore/QByteArrayList>
#include <QtCore/QObject>

#include <xcb/xcb.h>

namespace driftbox {

class Clock;
class X11Connection;

/// Transfers one target of a selection from its owner to this program, in one piece or in
/// increments. Main thread only. Destroying the object cancels the transfer.
class SelectionTransfer final : public QObject
{
public:
    struct Request
    {
        xcb_window_t requestor; ///< a window of this connection that reports property changes
        xcb_atom_t selection;
        xcb_atom_t target;
        xcb_timestamp_t time;
        qsizetype limit; ///< the maximum size in bytes
    };

    enum class Outcome : std::uint8_t {
        complete,
        refused,  ///< the owner does not have the target, or there is no owner
        timedOut, ///< not complete within the deadline
        tooLarge,
        malformed, ///< the owner violates the protocol
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

    /// The time limit for one target, including all increments.
    static constexpr std::chrono::milliseconds deadline = TransferLimits::deadline;

    /// Sends the request. `done` is called once, from the event loop, and may destroy the transfer.
    SelectionTransfer(X11Connection& connection, Clock& clock, const Request& request,
                      std::function<void(Result)> done);

    /// Finishes with what the owner sent before it ended; incomplete data counts as refused. May
    /// call `done`.
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
    bool m_hasNewValue = false; ///< written since reading the last value began
    qsizetype m_valueSize = 0;  ///< bytes read of the current value
    QByteArrayList m_pieces;    ///< joining them takes too long for the main thread
    qsizetype m_size = 0;       ///< of all pieces
    std::uint8_t m_format = 0;
};

} // namespace driftbox
