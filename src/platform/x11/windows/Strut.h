#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include <QtCore/QRect>

namespace driftbox {

/// The room that a panel or dock wants kept free along one edge of the whole desktop, in pixels.
struct Strut
{
    Qt::Edge edge;
    int depth; ///< counted from the desktop's edge
    int from;  ///< the stretch along the edge, both ends included
    int to;
    bool operator==(const Strut&) const = default;
};

/// The struts that a window's _NET_WM_STRUT_PARTIAL (twelve numbers) or _NET_WM_STRUT (four)
/// states; none for other numbers.
[[nodiscard]] std::vector<Strut> strutsFrom(std::span<const std::uint32_t> property);

/// What `struts` leave of `screen`. A desktop has several screens, so a strut counts on the screen
/// that it ends on, and on no other that it reaches across.
[[nodiscard]] QRect withoutStruts(const QRect& screen, QSize desktop,
                                  std::span<const Strut> struts);

} // namespace driftbox
