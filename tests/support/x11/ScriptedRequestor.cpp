#include "support/x11/ScriptedRequestor.h"

#include "platform/x11/connection/X11Connection.h"

#include <cstdlib>
#include <cstring>
#include <vector>

namespace driftbox {

ScriptedRequestor::ScriptedRequestor()
    : m_connection(X11Connection::open())
    , m_window(m_connection->createHiddenWindow(XCB_EVENT_MASK_PROPERTY_CHANGE))
{
    connect(m_connection.get(), &X11Connection::eventReceived, this,
            &ScriptedRequestor::handleEvent);
}

ScriptedRequestor::~ScriptedRequestor() = default;

void ScriptedRequestor::ask(const QByteArray& target, const QByteArray& selection)
{
    convert(m_window, selection, target, m_connection->atom(target));
}

void ScriptedRequestor::askForMultiple(const QByteArrayList& targets)
{
    std::vector<xcb_atom_t> pairs;
    for (const QByteArray& target : targets) {
        pairs.push_back(m_connection->atom(target));
        pairs.push_back(m_connection->atom("FOR_" + target));
    }
    const xcb_atom_t property = m_connection->atom("MULTIPLE");
    xcb_change_property(m_connection->xcb(), XCB_PROP_MODE_REPLACE, m_window, property,
                        m_connection->atom("ATOM_PAIR"), 32,
                        static_cast<std::uint32_t>(pairs.size()), pairs.data());
    convert(m_window, "CLIPBOARD", "MULTIPLE", property);
}

void ScriptedRequestor::askWithoutProperty(const QByteArray& target)
{
    convert(m_window, "CLIPBOARD", target, XCB_ATOM_NONE);
}

void ScriptedRequestor::askInTheNameOf(xcb_window_t window, const QByteArray& target)
{
    convert(window, "CLIPBOARD", target, m_connection->atom(target));
}

void ScriptedRequestor::convert(xcb_window_t window, const QByteArray& selection,
                                const QByteArray& target, xcb_atom_t property)
{
    xcb_convert_selection(m_connection->xcb(), window, m_connection->atom(selection),
                          m_connection->atom(target), property, XCB_CURRENT_TIME);
    m_connection->flush();
}

ScriptedRequestor::Value ScriptedRequestor::take(const QByteArray& property)
{
    constexpr std::uint32_t maxLength = 64 * 1024 * 1024 / 4;
    auto* const xcb = m_connection->xcb();
    auto* const reply =
        xcb_get_property_reply(xcb,
                               xcb_get_property(xcb, 1, m_window, m_connection->atom(property),
                                                XCB_GET_PROPERTY_TYPE_ANY, 0, maxLength),
                               nullptr);
    Value value;
    if (reply != nullptr && reply->type != XCB_ATOM_NONE)
        value = {nameOf(reply->type), reply->format,
                 QByteArray(static_cast<const char*>(xcb_get_property_value(reply)),
                            xcb_get_property_value_length(reply))};
    std::free(reply);
    return value;
}

void ScriptedRequestor::takeIncrements(const QByteArray& property)
{
    m_incremental = property;
    takeIncrement();
}

void ScriptedRequestor::takeIncrement()
{
    const Value value = take(m_incremental);
    if (value.type.isEmpty() || value.type == "INCR")
        return;
    increments += value.bytes;
    ++incrementCount;
    hasTakenLastIncrement = value.bytes.isEmpty();
}

void ScriptedRequestor::destroyWindow()
{
    xcb_destroy_window(m_connection->xcb(), m_window);
    m_connection->flush();
}

void ScriptedRequestor::handleEvent(const xcb_generic_event_t& event)
{
    if ((event.response_type & 0x7f) == XCB_SELECTION_NOTIFY) {
        handleNotification(reinterpret_cast<const xcb_selection_notify_event_t&>(event));
    } else if (event.response_type == XCB_PROPERTY_NOTIFY && !m_incremental.isEmpty()) {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (change.state == XCB_PROPERTY_NEW_VALUE &&
            change.atom == m_connection->atom(m_incremental))
            takeIncrement();
    }
}

void ScriptedRequestor::handleNotification(const xcb_selection_notify_event_t& notification)
{
    const QByteArray target = nameOf(notification.target);
    answers.append(notification.property == XCB_ATOM_NONE ? target + " refused" : target);
}

QByteArray ScriptedRequestor::nameOf(xcb_atom_t atom)
{
    auto* const reply = xcb_get_atom_name_reply(
        m_connection->xcb(), xcb_get_atom_name(m_connection->xcb(), atom), nullptr);
    QByteArray name = reply == nullptr ? QByteArray()
                                       : QByteArray(xcb_get_atom_name_name(reply),
                                                    xcb_get_atom_name_name_length(reply));
    std::free(reply);
    return name;
}

QByteArrayList ScriptedRequestor::namesOf(const QByteArray& atoms)
{
    QByteArrayList names;
    for (qsizetype offset = 0; offset < atoms.size(); offset += qsizetype(sizeof(xcb_atom_t))) {
        xcb_atom_t atom = XCB_ATOM_NONE;
        std::memcpy(&atom, atoms.constData() + offset, sizeof atom);
        names.append(atom == XCB_ATOM_NONE ? QByteArray("NONE") : nameOf(atom));
    }
    return names;
}

} // namespace driftbox
