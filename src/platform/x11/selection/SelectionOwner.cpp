#include "platform/x11/selection/SelectionOwner.h"

#include "platform/x11/connection/X11Connection.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace driftbox {

namespace {

// Limits the work per MULTIPLE request; well-behaved programs request fewer pairs.
constexpr std::uint32_t maxPairs = 64;

} // namespace

SelectionOwner::SelectionOwner(X11Connection& connection, Clock& clock, const QByteArray& selection)
    : m_connection(connection)
    , m_clock(clock)
    , m_selection(connection.atom(selection))
    , m_window(connection.createHiddenWindow(XCB_EVENT_MASK_NO_EVENT))
{
    connect(&connection, &X11Connection::eventReceived, this, &SelectionOwner::handleEvent);
}

SelectionOwner::~SelectionOwner()
{
    xcb_destroy_window(m_connection.xcb(), m_window);
}

void SelectionOwner::claim(const OfferedContent& content, xcb_timestamp_t time)
{
    m_content = content;
    m_time = time;
    xcb_set_selection_owner(m_connection.xcb(), m_window, m_selection, time);
    m_connection.whenReplied<xcb_get_selection_owner_reply_t>(
        xcb_get_selection_owner(m_connection.xcb(), m_selection).sequence, this,
        [this](const xcb_get_selection_owner_reply_t* reply) {
            if (reply != nullptr && reply->owner != m_window)
                Q_EMIT claimRejected();
        });
}

void SelectionOwner::handleEvent(const xcb_generic_event_t& event)
{
    if (event.response_type == XCB_SELECTION_REQUEST) {
        const auto& request = reinterpret_cast<const xcb_selection_request_event_t&>(event);
        if (request.owner == m_window && request.selection == m_selection)
            handleRequest(request);
    } else if (event.response_type == XCB_SELECTION_CLEAR) {
        const auto& clear = reinterpret_cast<const xcb_selection_clear_event_t&>(event);
        if (clear.owner == m_window && clear.selection == m_selection && clear.time > m_time)
            m_content = {}; // pending answers hold their own data
    }
}

void SelectionOwner::handleRequest(const xcb_selection_request_event_t& request)
{
    // Answering replaces this connection's event mask on the requestor window, so the root window
    // and the connection's own windows must not be requestors.
    if (request.requestor == m_connection.root() || m_connection.hasCreated(request.requestor))
        return notify(request, false);
    if (request.target == m_connection.atom("MULTIPLE"))
        return handleMultiple(request);
    // Obsolete clients leave the choice of the property to the owner.
    const xcb_atom_t property =
        request.property == XCB_ATOM_NONE ? request.target : request.property;
    xcb_selection_request_event_t answered = request;
    answered.property = property;
    notify(answered, answer(request.requestor, request.target, property));
}

void SelectionOwner::handleMultiple(const xcb_selection_request_event_t& request)
{
    if (request.property == XCB_ATOM_NONE)
        return notify(request, false);
    const auto cookie =
        xcb_get_property(m_connection.xcb(), false, request.requestor, request.property,
                         XCB_GET_PROPERTY_TYPE_ANY, 0, 2 * maxPairs);
    m_connection.whenReplied<xcb_get_property_reply_t>(
        cookie.sequence, this,
        [this, request](const xcb_get_property_reply_t* pairs) { answerPairs(request, pairs); });
}

void SelectionOwner::answerPairs(const xcb_selection_request_event_t& request,
                                 const xcb_get_property_reply_t* pairs)
{
    if (pairs == nullptr || pairs->format != 32 || pairs->bytes_after > 0)
        return notify(request, false);
    std::vector<xcb_atom_t> atoms(pairs->value_len);
    std::memcpy(atoms.data(), xcb_get_property_value(pairs), atoms.size() * sizeof(xcb_atom_t));
    const xcb_atom_t multiple = m_connection.atom("MULTIPLE");
    for (std::size_t i = 0; i + 1 < atoms.size(); i += 2) {
        const bool isAnswered = atoms[i] != multiple && atoms[i + 1] != XCB_ATOM_NONE &&
                                answer(request.requestor, atoms[i], atoms[i + 1]);
        if (!isAnswered)
            atoms[i + 1] = XCB_ATOM_NONE;
    }
    setProperty32(request.requestor, request.property, pairs->type, atoms);
    notify(request, true);
}

bool SelectionOwner::answer(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property)
{
    if (target == m_connection.atom("TARGETS")) {
        sendTargets(requestor, property);
        return true;
    }
    if (target == m_connection.atom("TIMESTAMP")) {
        setProperty32(requestor, property, XCB_ATOM_INTEGER, {{m_time}});
        return true;
    }
    const auto name =
        std::ranges::find(m_content.targets(), target,
                          [this](const QByteArray& each) { return m_connection.atom(each); });
    if (name == m_content.targets().end())
        return false;
    const IncrementalAnswer::Destination destination{
        requestor, property, m_connection.atom(OfferedContent::typeOf(*name))};
    auto bytes = m_content.open(*name);
    const qsizetype maxInOnePiece = IncrementalAnswer::maxIncrement(m_connection);
    if (bytes->maxRemaining() <= maxInOnePiece)
        answerInOnePiece(destination, bytes->next(maxInOnePiece));
    else
        answerIncrementally(destination, std::move(bytes));
    return true;
}

void SelectionOwner::answerInOnePiece(const IncrementalAnswer::Destination& destination,
                                      const QByteArray& bytes)
{
    xcb_change_property(m_connection.xcb(), XCB_PROP_MODE_REPLACE, destination.requestor,
                        destination.property, destination.type, 8,
                        static_cast<std::uint32_t>(bytes.size()), bytes.constData());
}

void SelectionOwner::answerIncrementally(const IncrementalAnswer::Destination& destination,
                                         std::unique_ptr<ByteStream> bytes)
{
    const auto position = m_answers.emplace(m_answers.end());
    *position =
        std::make_unique<IncrementalAnswer>(m_connection, m_clock, destination, std::move(bytes),
                                            [this, position] { answerEnded(position); });
}

void SelectionOwner::answerEnded(std::list<std::unique_ptr<IncrementalAnswer>>::iterator ended)
{
    const xcb_window_t requestor = (*ended)->requestor();
    m_answers.erase(ended);
    if (std::ranges::any_of(m_answers,
                            [&](const auto& other) { return other->requestor() == requestor; }))
        return;
    const std::uint32_t nothing = XCB_EVENT_MASK_NO_EVENT;
    xcb_change_window_attributes(m_connection.xcb(), requestor, XCB_CW_EVENT_MASK, &nothing);
}

void SelectionOwner::notify(const xcb_selection_request_event_t& request, bool isAnswered)
{
    // Every event is sent as 32 bytes.
    std::array<char, 32> bytes{};
    xcb_selection_notify_event_t notification{};
    notification.response_type = XCB_SELECTION_NOTIFY;
    notification.time = request.time;
    notification.requestor = request.requestor;
    notification.selection = request.selection;
    notification.target = request.target;
    notification.property = isAnswered ? request.property : xcb_atom_t(XCB_ATOM_NONE);
    std::memcpy(bytes.data(), &notification, sizeof notification);
    xcb_send_event(m_connection.xcb(), false, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                   bytes.data());
}

void SelectionOwner::sendTargets(xcb_window_t requestor, xcb_atom_t property)
{
    std::vector<xcb_atom_t> atoms{m_connection.atom("TARGETS"), m_connection.atom("MULTIPLE"),
                                  m_connection.atom("TIMESTAMP")};
    for (const QByteArray& name : m_content.targets())
        atoms.push_back(m_connection.atom(name));
    setProperty32(requestor, property, XCB_ATOM_ATOM, atoms);
}

void SelectionOwner::setProperty32(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t type,
                                   std::span<const std::uint32_t> values)
{
    xcb_change_property(m_connection.xcb(), XCB_PROP_MODE_REPLACE, requestor, property, type, 32,
                        static_cast<std::uint32_t>(values.size()), values.data());
}

} // namespace driftbox
