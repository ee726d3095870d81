#pragma once

/// What the desktop says about assistive technology.
namespace driftbox::ScreenReader {

/// Whether the user has a screen reader on. Waits for the answer a tenth of a second at most.
[[nodiscard]] bool isEnabled();

} // namespace driftbox::ScreenReader
