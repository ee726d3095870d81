#pragma once

#include "clipboard/recognition/LanguageChoice.h"
#include "clipboard/recognition/LineReader.h"

namespace driftbox {

struct PieceReading
{
    QString text; ///< empty if the piece is not text or the limit is reached
    int confidence = 0;
};

/// Reads one piece, given as `image`, in the page language that suits it best.
[[nodiscard]] PieceReading readPiece(const QImage& image, const LanguageChoice& languages,
                                     LineReader& reader, const ReadingLimit& limit);

} // namespace driftbox
