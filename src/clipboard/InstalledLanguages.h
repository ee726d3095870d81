#pragma once

#include <QtCore/QLocale>
#include <QtCore/QStringList>

namespace driftbox {

/// Selects the languages to try from Tesseract's `installed` ones: the language of `locale` first,
/// then those in `usual`, in that order, then the others by name. Data files that are not languages
/// are excluded, and the number is limited: reading in dozens of languages would take minutes.
[[nodiscard]] QStringList preferredLanguages(const QStringList& installed, const QLocale& locale,
                                             const QStringList& usual);

} // namespace driftbox
