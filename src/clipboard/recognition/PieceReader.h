#pragma once

#include "clipboard/recognition/LanguageChoice.h"
#include "clipboard/recognition/LineReader.h"

namespace driftbox {

/// The text of one piece, whose picture is `image`, in the best of the page's languages. Empty when
/// it is no text, or the limit is reached.
[[nodiscard]] QString readPiece(const QImage& image, const LanguageChoice& languages,
                                LineReader& reader, const ReadingLimit& limit);

} // namespace driftbox
