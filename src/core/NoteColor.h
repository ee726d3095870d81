#pragma once

#include <array>
#include <optional>

#include <QtCore/QString>
#include <QtCore/QStringView>

namespace driftbox {

/// The background color of a sticky note, in the order in which pickers offer them.
enum class NoteColor { yellow, blue, green, pink };

inline constexpr std::array allNoteColors = {NoteColor::yellow, NoteColor::blue, NoteColor::green,
                                             NoteColor::pink};

/// The name a color is stored under.
[[nodiscard]] QString rawValue(NoteColor color);

/// The name a color is shown under.
[[nodiscard]] QString displayName(NoteColor color);

/// None for a name that no color has.
[[nodiscard]] std::optional<NoteColor> noteColorFromRawValue(QStringView name);

} // namespace driftbox
