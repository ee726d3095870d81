#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include <QtCore/QRect>

namespace driftbox {

/// The space that a panel or dock reserves along one edge of the whole desktop, in pixels.
struct Strut
{
    Qt::Edge edge;
    int depth; ///< from the desktop's edge
    int from;  ///< the range along the edge, inclusive
    int to;
    bool operator==(const Strut&) const = default;
};

/// Parses a window's _NET_WM_STRUT_PARTIAL (twelve numbers) or _NET_WM_STRUT (four); no struts for
/// other numbers.
[[nodiscard]] std::vector<Strut> strutsFrom(std::span<const std::uint32_t> property);

/// The part of `screen` that `struts` leave free. On a desktop with several screens a strut applies
/// only to the screen that it ends on, not to those that it extends across.
[[nodiscard]] QRect withoutStruts(const QRect& screen, QSize desktop,
                                  std::span<const Strut> struts);

} // namespace driftbox
