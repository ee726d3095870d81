#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include <QtCore/QByteArray>

#include <xcb/xcb.h>

namespace driftbox {

class X11Connection;

/// Reads properties of windows. Every call is one round trip to the X server, however many windows
/// it covers. The result is empty for a window that no longer exists, lacks the property, or has it
/// in another format.
namespace X11Properties {

[[nodiscard]] std::vector<std::uint32_t> numbers(X11Connection& connection, xcb_window_t window,
                                                 const char* name);
/// One list per window, in the same order.
[[nodiscard]] std::vector<std::vector<std::uint32_t>>
numbers(X11Connection& connection, std::span<const xcb_window_t> windows, const char* name);
/// Only the first number.
[[nodiscard]] std::optional<std::uint32_t> number(X11Connection& connection, xcb_window_t window,
                                                  const char* name);
[[nodiscard]] QByteArray bytes(X11Connection& connection, xcb_window_t window, const char* name);

} // namespace X11Properties

} // namespace driftbox
