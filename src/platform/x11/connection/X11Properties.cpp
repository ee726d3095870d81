#include "platform/x11/connection/X11Properties.h"

#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/connection/X11Reply.h"

namespace driftbox::X11Properties {

namespace {

constexpr std::uint32_t maxUnits = 16'384; // of four bytes

using Property = X11Reply<xcb_get_property_reply_t>;

xcb_get_property_cookie_t request(const X11Connection& connection, xcb_window_t window,
                                  xcb_atom_t name)
{
    return xcb_get_property(connection.xcb(), false, window, name, XCB_ATOM_ANY, 0, maxUnits);
}

std::vector<std::uint32_t> numbersOf(const Property& property)
{
    if (!property || property->format != 32)
        return {};
    const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(property.get()));
    return {first, first + property->value_len};
}

} // namespace

std::vector<std::vector<std::uint32_t>>
numbers(X11Connection& connection, std::span<const xcb_window_t> windows, const char* name)
{
    const xcb_atom_t atom = connection.atom(name);
    std::vector<xcb_get_property_cookie_t> cookies;
    cookies.reserve(windows.size());
    for (const xcb_window_t window : windows)
        cookies.push_back(request(connection, window, atom));
    std::vector<std::vector<std::uint32_t>> lists;
    lists.reserve(windows.size());
    for (const auto cookie : cookies)
        lists.push_back(
            numbersOf(Property(xcb_get_property_reply(connection.xcb(), cookie, nullptr))));
    return lists;
}

std::vector<std::uint32_t> numbers(X11Connection& connection, xcb_window_t window, const char* name)
{
    return numbers(connection, std::span(&window, 1), name).front();
}

std::optional<std::uint32_t> number(X11Connection& connection, xcb_window_t window,
                                    const char* name)
{
    const auto list = numbers(connection, window, name);
    return list.empty() ? std::nullopt : std::optional(list.front());
}

QByteArray bytes(X11Connection& connection, xcb_window_t window, const char* name)
{
    const auto cookie = request(connection, window, connection.atom(name));
    const Property property(xcb_get_property_reply(connection.xcb(), cookie, nullptr));
    if (!property || property->format != 8)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(property.get())),
            static_cast<qsizetype>(property->value_len)};
}

} // namespace driftbox::X11Properties
