#pragma once

/// The desktop's assistive technology settings.
namespace driftbox::ScreenReader {

/// Whether a screen reader is enabled. Blocks for at most 100 ms.
[[nodiscard]] bool isEnabled();

} // namespace driftbox::ScreenReader
