#pragma once

#include "platform/selection/OfferedContent.h"
#include "platform/x11/selection/IncrementalAnswer.h"

#include <list>
#include <memory>
#include <span>

#include <QtCore/QObject>

#include <xcb/xcb.h>

namespace driftbox {

/// Owns one selection on behalf of this program: claims it and answers requests from memory. Main
/// thread only.
///
/// Any number of requestors can be served at the same time; those that terminate halfway or never
/// take their answer do not affect the others.
class SelectionOwner final : public QObject
{
    Q_OBJECT

public:
    SelectionOwner(X11Connection& connection, Clock& clock, const QByteArray& selection);
    ~SelectionOwner() override;

    /// The owner window.
    [[nodiscard]] xcb_window_t window() const { return m_window; }

    /// Claims the selection as of `time` and offers `content`. The server refuses the claim, and
    /// `claimRejected` is emitted, when another client has claimed the selection since.
    void claim(const OfferedContent& content, xcb_timestamp_t time);

Q_SIGNALS:
    /// Another client owns the selection despite the last claim.
    void claimRejected();

private:
    void handleEvent(const xcb_generic_event_t& event);
    void handleRequest(const xcb_selection_request_event_t& request);
    void handleMultiple(const xcb_selection_request_event_t& request);
    void answerPairs(const xcb_selection_request_event_t& request,
                     const xcb_get_property_reply_t* pairs);
    [[nodiscard]] bool answer(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property);
    void answerInOnePiece(const IncrementalAnswer::Destination& destination,
                          const QByteArray& bytes);
    void answerIncrementally(const IncrementalAnswer::Destination& destination,
                             std::unique_ptr<ByteStream> bytes);
    void answerEnded(std::list<std::unique_ptr<IncrementalAnswer>>::iterator ended);
    void notify(const xcb_selection_request_event_t& request, bool isAnswered);
    void sendTargets(xcb_window_t requestor, xcb_atom_t property);
    void setProperty32(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t type,
                       std::span<const std::uint32_t> values);

    X11Connection& m_connection;
    Clock& m_clock;
    const xcb_atom_t m_selection;
    const xcb_window_t m_window;
    OfferedContent m_content;
    xcb_timestamp_t m_time = XCB_CURRENT_TIME;
    std::list<std::unique_ptr<IncrementalAnswer>> m_answers;
};

} // namespace driftbox
