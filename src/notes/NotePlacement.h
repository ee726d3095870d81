#pragma once

#include "notes/StickyNote.h"
#include "platform/Screens.h"

#include <optional>
#include <vector>

#include <QtCore/QSizeF>

/// Where notes stand, in screen space.
namespace driftbox::NotePlacement {

inline constexpr QSizeF minWindowSize{160, 120};
/// What zooming stops at.
inline constexpr QSizeF maxZoomedWindow{1600, 2000};

/// The frame of the note that is made after `count` others: each a step further left and down from
/// the upper right corner of the primary screen, every ninth where the first one was. `imageSize`
/// is that of the note's image, if it has one.
[[nodiscard]] NoteFrame cascadeFrame(qint64 count, const std::optional<QSizeF>& imageSize,
                                     const std::vector<Screen>& screens);

/// Whether any of the frame lies in the visible part of a screen.
[[nodiscard]] bool isVisible(const NoteFrame& frame, const std::vector<Screen>& screens);

/// The rectangle for the window of a note: its frame, except where no window could be like that;
/// then the nearest one that can, with the upper left corner kept if that leaves it visible.
[[nodiscard]] QRectF windowRect(const NoteFrame& frame, const std::vector<Screen>& screens);

} // namespace driftbox::NotePlacement
