#pragma once

#include <cstdint>
#include <memory>

class QSystemTrayIcon;

namespace driftbox {

/// How a desktop shows symbols of resident programs.
enum class StatusPlace : std::uint8_t {
    notifiers, ///< it shows the item and draws its menu
    tray,      ///< it holds a window of the program
};

/// An icon for that place, not shown yet. Left alone, the toolkit would decide between the places
/// once, for the program's whole life. The place must be there.
[[nodiscard]] std::unique_ptr<QSystemTrayIcon> makeStatusIcon(StatusPlace place);

} // namespace driftbox
