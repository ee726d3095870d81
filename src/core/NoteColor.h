#pragma once

#include <array>
#include <optional>

#include <QtCore/QString>
#include <QtCore/QStringView>

namespace driftbox {

/// The background colors of sticky notes, in the order the pickers list them.
enum class NoteColor { yellow, blue, green, pink };

inline constexpr std::array allNoteColors = {NoteColor::yellow, NoteColor::blue, NoteColor::green,
                                             NoteColor::pink};

/// The name a color is stored under.
[[nodiscard]] QString rawValue(NoteColor color);

/// The name a color is shown under.
[[nodiscard]] QString displayName(NoteColor color);

/// Exact match; nullopt for an unknown name.
[[nodiscard]] std::optional<NoteColor> noteColorFromRawValue(QStringView name);

} // namespace driftbox
