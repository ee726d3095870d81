#pragma once

#include "notes/StickyNote.h"
#include "platform/Screens.h"

#include <optional>
#include <vector>

#include <QtCore/QSizeF>

/// The placement of note windows, in screen space.
namespace driftbox::NotePlacement {

inline constexpr QSizeF minWindowSize{160, 120};
/// The maximum size that zooming can reach.
inline constexpr QSizeF maxZoomedWindow{1600, 2000};

/// The frame of the next note after `count` others: each one is a step further to the left and down
/// from the upper right corner of the primary screen, starting over after eight. `imageSize` is the
/// size of the note's image, if it has one.
[[nodiscard]] NoteFrame cascadeFrame(qint64 count, const std::optional<QSizeF>& imageSize,
                                     const std::vector<Screen>& screens);

/// Whether any part of the frame is in the visible area of a screen.
[[nodiscard]] bool isVisible(const NoteFrame& frame, const std::vector<Screen>& screens);

/// The rectangle for a note's window: its frame, with the size clamped to the limits. Keeps the
/// upper left corner if the window is visible then, else moves it onto the primary screen.
[[nodiscard]] QRectF windowRect(const NoteFrame& frame, const std::vector<Screen>& screens);

} // namespace driftbox::NotePlacement
