#pragma once

#include "clipboard/recognition/LanguageChoice.h"
#include "clipboard/recognition/LineReader.h"

namespace driftbox {

struct PieceReading
{
    QString text; ///< empty when the piece is no text, or the limit is reached
    int confidence = 0;
};

/// Reads one piece, whose picture is `image`, in the best of the page's languages.
[[nodiscard]] PieceReading readPiece(const QImage& image, const LanguageChoice& languages,
                                     LineReader& reader, const ReadingLimit& limit);

} // namespace driftbox
