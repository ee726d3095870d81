#include "support/x11/ScriptedOwner.h"

#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/connection/X11Reply.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <utility>

namespace driftbox {

ScriptedOwner::ScriptedOwner(QByteArray selection)
    : m_selection(std::move(selection))
    , m_connection(X11Connection::open())
    , m_window(m_connection->createHiddenWindow(XCB_EVENT_MASK_NO_EVENT))
{
    connect(m_connection.get(), &X11Connection::eventReceived, this, &ScriptedOwner::handleEvent);
}

ScriptedOwner::~ScriptedOwner() = default;

void ScriptedOwner::take()
{
    xcb_set_selection_owner(m_connection->xcb(), m_window, m_connection->atom(m_selection),
                            XCB_CURRENT_TIME);
    // A round trip, so that later requests of other clients see this owner.
    const X11Reply<xcb_get_input_focus_reply_t> done(xcb_get_input_focus_reply(
        m_connection->xcb(), xcb_get_input_focus(m_connection->xcb()), nullptr));
}

void ScriptedOwner::clear()
{
    xcb_set_selection_owner(m_connection->xcb(), XCB_NONE, m_connection->atom(m_selection),
                            XCB_CURRENT_TIME);
    m_connection->flush();
}

void ScriptedOwner::destroyWindow()
{
    xcb_destroy_window(m_connection->xcb(), m_window);
    m_connection->flush();
}

void ScriptedOwner::end()
{
    m_connection->flush();
    m_connection.reset();
}

bool ScriptedOwner::ownsSelection()
{
    auto* const xcb = m_connection->xcb();
    auto* const reply = xcb_get_selection_owner_reply(
        xcb, xcb_get_selection_owner(xcb, m_connection->atom(m_selection)), nullptr);
    const bool isOwner = reply != nullptr && reply->owner == m_window;
    std::free(reply);
    return isOwner;
}

void ScriptedOwner::handleEvent(const xcb_generic_event_t& event)
{
    if (event.response_type == XCB_SELECTION_REQUEST) {
        const auto& request = reinterpret_cast<const xcb_selection_request_event_t&>(event);
        handleRequest(
            {request.requestor, request.selection, request.target, request.property, request.time});
    } else if (event.response_type == XCB_PROPERTY_NOTIFY) {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        const auto taken = m_taken.value(change.atom);
        if (change.state == XCB_PROPERTY_DELETE && taken)
            taken();
    }
}

void ScriptedOwner::handleRequest(const Request& request)
{
    const QByteArray target = nameOf(request.target);
    asked.append(target);
    if (const auto answer = answers.value(target)) {
        answer(request);
    } else if (target == "TARGETS") {
        answerTargets(request);
    } else if (!formats.contains(target)) {
        refuse(request);
    } else if (incrementSize > 0) {
        answerInIncrements(request, target, formats.value(target));
    } else {
        put(request, target, 8, formats.value(target));
        notify(request);
    }
    if (m_connection)
        m_connection->flush();
}

void ScriptedOwner::answerTargets(const Request& request)
{
    QByteArray atoms;
    for (const QByteArray& name : QByteArrayList{"TARGETS"} + formats.keys() + answers.keys()) {
        const xcb_atom_t atom = m_connection->atom(name);
        atoms.append(reinterpret_cast<const char*>(&atom), sizeof atom);
    }
    put(request, "ATOM", 32, atoms);
    notify(request);
}

void ScriptedOwner::answerInIncrements(const Request& request, const QByteArray& type,
                                       const QByteArray& bytes)
{
    announceIncrements(request, static_cast<std::uint32_t>(bytes.size()));
    const auto position = std::make_shared<qsizetype>(0);
    whenTaken(request, [this, request, type, bytes, position] {
        const QByteArray part = bytes.mid(*position, incrementSize);
        *position += part.size();
        put(request, type, 8, part);
        if (part.isEmpty())
            m_taken.remove(request.property);
    });
    notify(request);
}

void ScriptedOwner::put(const Request& request, const QByteArray& type, int format,
                        const QByteArray& bytes)
{
    const qsizetype elementSize = format / 8;
    xcb_change_property(m_connection->xcb(), XCB_PROP_MODE_REPLACE, request.requestor,
                        request.property, m_connection->atom(type),
                        static_cast<std::uint8_t>(format),
                        static_cast<std::uint32_t>(bytes.size() / elementSize), bytes.constData());
}

void ScriptedOwner::append(const Request& request, const QByteArray& bytes)
{
    xcb_change_property(m_connection->xcb(), XCB_PROP_MODE_APPEND, request.requestor,
                        request.property, request.target, 8,
                        static_cast<std::uint32_t>(bytes.size()), bytes.constData());
}

void ScriptedOwner::announceIncrements(const Request& request, std::uint32_t size)
{
    put(request, "INCR", 32, QByteArray(reinterpret_cast<const char*>(&size), sizeof size));
}

void ScriptedOwner::notify(const Request& request)
{
    send(request, request.property);
}

void ScriptedOwner::refuse(const Request& request)
{
    send(request, XCB_ATOM_NONE);
}

void ScriptedOwner::whenTaken(const Request& request, const std::function<void()>& deleted)
{
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_connection->xcb(), request.requestor, XCB_CW_EVENT_MASK,
                                 &events);
    m_taken.insert(request.property, deleted);
}

ScriptedOwner::Answer ScriptedOwner::silence()
{
    return [](const Request&) {};
}

void ScriptedOwner::send(const Request& request, xcb_atom_t property)
{
    std::array<char, 32> bytes{};
    xcb_selection_notify_event_t notification{};
    notification.response_type = XCB_SELECTION_NOTIFY;
    notification.time = request.time;
    notification.requestor = request.requestor;
    notification.selection = request.selection;
    notification.target = request.target;
    notification.property = property;
    std::memcpy(bytes.data(), &notification, sizeof notification);
    xcb_send_event(m_connection->xcb(), 0, request.requestor, 0, bytes.data());
}

QByteArray ScriptedOwner::nameOf(xcb_atom_t atom)
{
    auto* const reply = xcb_get_atom_name_reply(
        m_connection->xcb(), xcb_get_atom_name(m_connection->xcb(), atom), nullptr);
    QByteArray name(xcb_get_atom_name_name(reply), xcb_get_atom_name_name_length(reply));
    std::free(reply);
    return name;
}

} // namespace driftbox
