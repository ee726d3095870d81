#pragma once

#include <cstdint>
#include <memory>

class QSystemTrayIcon;

namespace driftbox {

/// The kinds of status areas.
enum class StatusPlace : std::uint8_t {
    notifiers, ///< the desktop draws the item and its menu
    tray,      ///< the desktop embeds a window of the program
};

/// Creates an icon for `place`, which must be available, without showing it. By default the toolkit
/// would choose the place once for the lifetime of the program.
[[nodiscard]] std::unique_ptr<QSystemTrayIcon> makeStatusIcon(StatusPlace place);

} // namespace driftbox
