#pragma once

#include <QtCore/QLocale>
#include <QtCore/QStringList>

namespace driftbox {

/// In which of the `installed` languages of Tesseract a picture is read when nothing else is said:
/// first the user's own, by `locale`; then those in `usual`, in that order; then the others by
/// name. Data that is no language of its own is left out, and what exceeds a handful too: reading
/// in dozens would take minutes.
[[nodiscard]] QStringList preferredLanguages(const QStringList& installed, const QLocale& locale,
                                             const QStringList& usual);

} // namespace driftbox
